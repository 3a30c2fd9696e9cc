#include "ui/ribbon_bar.h"

#include <QAction>
#include <QComboBox>
#include <QDataStream>
#include <QFrame>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

#include "project/settings_records.h"
#include "ui/ribbon_gallery.h"

namespace orv {

namespace {

constexpr int SMALL_ROWS = 3;  // small controls stacked in one column
constexpr int LARGE_ICON = 32, SMALL_ICON = 16;
constexpr int FIELD_WIDTH = 40;
constexpr int STATE_VERSION = 1;

using K = ECommandKind;

// A gallery's tile and the width of its row in place; 0 keeps only the
// drop-down button, for lists that belong to a field.
struct UstGalleryShape {
    uint32_t nId;
    QSize tile;
    int nRowWidth;
};
constexpr UstGalleryShape GALLERY_SHAPES[] = {
    {CMD_FONT_GALLERY, {160, 22}, 0},    {CMD_SIZE_GALLERY, {48, 18}, 0},
    {CMD_SYMBOL_GALLERY, {20, 20}, 180}, {CMD_PALETTE, {16, 16}, 140},
    {CMD_EFFECT_GALLERY, {90, 22}, 300},
};
const UstGalleryShape STYLE_GALLERY_SHAPE{0, {90, 48}, 300};

const UstGalleryShape& ShapeOf(uint32_t id) {
    for (const UstGalleryShape& s : GALLERY_SHAPES)
        if (s.nId == id) return s;
    return STYLE_GALLERY_SHAPE;
}

// The few commands an operator looks for first stand large; the rest stack
// three to a column so that a tab fits a common screen.
constexpr uint32_t LARGE_BUTTONS[] = {57637, 207, 244, 777, 1312, 40051, 40050, 720};

bool IsLarge(const UstCommand& c) {
    return c.eKind != K::STEP && std::find(std::begin(LARGE_BUTTONS), std::end(LARGE_BUTTONS),
                                           c.nId) != std::end(LARGE_BUTTONS);
}

bool IsCompanion(const UstCommand& c) {
    if (c.eKind == K::STEP || c.eKind == K::SLIDER || c.eKind == K::ITEM) return true;
    return c.eKind == K::GALLERY && ShapeOf(c.nId).nRowWidth == 0;
}

}  // namespace

CRibbonBar::CRibbonBar(uint16_t language, const ActionFn& action, QWidget* parent)
    : QWidget(parent),
      m_nLanguage(language),
      m_fnAction(action),
      m_pTabs(new QTabBar(this)),
      m_pStack(new QStackedWidget(this)),
      m_pCollapse(new QToolButton(this)) {
    setObjectName("Ribbon");
    // As wide as the window allows; a narrow window scrolls the groups.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_pTabs->setObjectName("RibbonTabs");
    m_pTabs->setDrawBase(false);
    m_pCollapse->setObjectName("RibbonCollapse");
    m_pCollapse->setCheckable(true);
    m_pCollapse->setArrowType(Qt::UpArrow);
    // Ctrl+F1 folds a ribbon away wherever ribbons are found.
    m_pCollapse->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F1));
    m_pCollapse->setToolTip(language == LANG_KOREAN ? QString::fromUtf8("리본 최소화")
                                                    : QString("Minimize the Ribbon"));
    for (const UstCommandTab& tab : CommandTabs()) {
        const int index = m_pTabs->addTab(TabLabel(tab, language));
        m_pTabs->setTabData(index, tab.nId);
        m_pStack->addWidget(BuildTab(tab));
    }
    auto* head = new QHBoxLayout;
    m_pHead = head;
    head->setContentsMargins(0, 0, 0, 0);
    head->addWidget(m_pTabs);
    head->addStretch();
    head->addWidget(m_pCollapse);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(0);
    layout->addLayout(head);
    layout->addWidget(m_pStack);
    connect(m_pTabs, &QTabBar::currentChanged, this, [this](int index) {
        m_pStack->setCurrentIndex(index);
        Q_EMIT TabChanged(CurrentTab());
    });
    connect(m_pTabs, &QTabBar::tabBarDoubleClicked, this, [this] { SetCollapsed(!m_bCollapsed); });
    connect(m_pCollapse, &QToolButton::toggled, this, [this](bool on) { SetCollapsed(on); });
}

void CRibbonBar::SetQuickAccess(QWidget* bar) {
    m_pHead->insertWidget(0, bar);
    m_pHead->insertSpacing(1, 8);
}

QString CRibbonBar::Label(const UstCommand& c, int form, uint16_t language) {
    if (language == LANG_KOREAN) return QString::fromUtf8(c.szKorean);
    const QStringList forms = QString::fromUtf8(c.szText).split('\n');
    return forms.value(std::min<int>(form, static_cast<int>(forms.size()) - 1));
}

QString CRibbonBar::TabLabel(const UstCommandTab& t, uint16_t language) {
    return QString::fromUtf8(language == LANG_KOREAN ? t.szKorean : t.szText);
}

// A tab narrower than its groups scrolls sideways rather than hiding any.
QWidget* CRibbonBar::BuildTab(const UstCommandTab& tab) {
    auto* page = new QWidget;
    page->setObjectName(QString("tab%1").arg(tab.nId));
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(2, 2, 2, 2);
    row->setSpacing(2);
    for (const UstCommandGroup& group : CommandGroups())
        if (group.nTab == tab.nId) row->addWidget(BuildGroup(group));
    row->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(page);
    scroll->setFixedHeight(page->sizeHint().height() +
                           scroll->horizontalScrollBar()->sizeHint().height());
    return scroll;
}

// Large buttons stand alone; small controls stack in columns of three;
// steps, sliders and list drop-downs sit beside their field.
QWidget* CRibbonBar::BuildGroup(const UstCommandGroup& group) {
    auto* box = new QFrame;
    box->setObjectName(QString("grp%1").arg(group.nId));
    box->setFrameShape(QFrame::StyledPanel);
    // A group keeps its own width; the tab's stretch takes what is left.
    box->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2);
    QVBoxLayout* small = nullptr;
    int rows = 0;
    // Two buttons and then a field, or the reverse, start a new column, so
    // that a wide field does not stretch the buttons above it.
    bool smallFields = false;
    for (const UstCommand& c : Commands()) {
        if (c.nGroup != group.nId || IsCompanion(c)) continue;
        bool large = false;
        QWidget* w = MakeControl(c, &large);
        if (large) {
            columns->addWidget(w);
            small = nullptr;
            continue;
        }
        const bool field = c.eKind == K::EDIT || c.eKind == K::COMBO;
        if (!small || rows == SMALL_ROWS || (field != smallFields && rows >= 2)) {
            if (small)
                for (; rows < SMALL_ROWS; ++rows)
                    small->addStretch();
            smallFields = field;
            small = new QVBoxLayout;
            small->setSpacing(1);
            columns->addLayout(small);
            rows = 0;
        }
        small->addWidget(w);
        ++rows;
    }
    if (small)
        for (; rows < SMALL_ROWS; ++rows)
            small->addStretch();
    auto* caption =
        new QLabel(QString::fromUtf8(m_nLanguage == LANG_KOREAN ? group.szKorean : group.szText));
    caption->setAlignment(Qt::AlignCenter);
    caption->setStyleSheet("color: #4A5A78;");
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(3, 2, 3, 1);
    layout->setSpacing(1);
    layout->addLayout(columns, 1);
    layout->addWidget(caption);
    return box;
}

QWidget* CRibbonBar::MakeControl(const UstCommand& c, bool* large) {
    switch (c.eKind) {
        case K::EDIT:
            return MakeFieldRow(c);
        case K::COMBO:
            return MakeComboRow(c);
        case K::GALLERY: {
            const UstGalleryShape& shape = ShapeOf(c.nId);
            auto* gallery = new CRibbonGallery(c.nId, shape.tile, shape.nRowWidth);
            gallery->setToolTip(Label(c, 0, m_nLanguage));
            connect(gallery, &CRibbonGallery::Picked, this, &CRibbonBar::GalleryPicked);
            Register(c.nId, gallery);
            *large = true;
            return gallery;
        }
        default:
            return MakeButton(c, large);
    }
}

QWidget* CRibbonBar::MakeButton(const UstCommand& c, bool* large) {
    auto* button = new QToolButton;
    QAction* action = m_fnAction(c);
    button->setDefaultAction(action);
    button->setObjectName(QString("btn%1").arg(c.nId));
    button->setToolTip(Label(c, 0, m_nLanguage));
    button->setFocusPolicy(Qt::TabFocus);
    *large = IsLarge(c);
    if (*large) {
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setIconSize(QSize(LARGE_ICON, LARGE_ICON));
        button->setMinimumWidth(std::max(52, button->sizeHint().width()));
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    } else {
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIconSize(QSize(SMALL_ICON, SMALL_ICON));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    QMenu* menu = nullptr;
    for (const UstCommand& item : Commands()) {
        if (item.eKind != K::ITEM || item.nPartner != c.nId) continue;
        if (!menu) menu = new QMenu(button);
        menu->addAction(m_fnAction(item));
    }
    if (menu) {
        button->setMenu(menu);
        button->setPopupMode(QToolButton::InstantPopup);
    }
    Register(c.nId, button);
    return button;
}

// A row of one field or combo: its label, the control, then the steps,
// slider or list that belong to it.
QWidget* CRibbonBar::MakeRow(const UstCommand& c, QWidget* control, bool labelled) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    control->setObjectName(QString("ctl%1").arg(c.nId));
    control->setToolTip(Label(c, 0, m_nLanguage));
    if (labelled) {
        auto* label = new QLabel(Label(c, 2, m_nLanguage));
        label->setMinimumWidth(std::max(28, label->sizeHint().width()));
        label->setBuddy(control);
        layout->addWidget(label);
    }
    layout->addWidget(control);
    Register(c.nId, control);
    AttachCompanions(c, layout);
    return row;
}

QWidget* CRibbonBar::MakeFieldRow(const UstCommand& c) {
    auto* field = new QLineEdit;
    field->setFixedWidth(FIELD_WIDTH);
    connect(field, &QLineEdit::editingFinished, this,
            [this, field, id = c.nId] { Q_EMIT FieldEdited(id, field->text()); });
    return MakeRow(c, field, true);
}

QWidget* CRibbonBar::MakeComboRow(const UstCommand& c) {
    auto* combo = new QComboBox;
    combo->setMinimumWidth(c.nId == 202 ? 130 : 80);
    connect(combo, &QComboBox::activated, this,
            [this, id = c.nId](int index) { Q_EMIT ComboChosen(id, index); });
    return MakeRow(c, combo, c.nId != 202);
}

void CRibbonBar::AttachCompanions(const UstCommand& field, QHBoxLayout* row) {
    for (const UstCommand& c : Commands()) {
        if (c.nPartner != field.nId) continue;
        if (c.eKind == K::STEP) {
            bool large = false;
            auto* step = static_cast<QToolButton*>(MakeButton(c, &large));
            // An arrow says more in its 16 pixels than a clipped word.
            step->setToolButtonStyle(Qt::ToolButtonIconOnly);
            step->setArrowType(c.nDelta > 0 ? Qt::UpArrow : Qt::DownArrow);
            step->setFixedWidth(18);
            row->addWidget(step);
        } else if (c.eKind == K::SLIDER) {
            auto* slider = new QSlider(Qt::Horizontal);
            slider->setObjectName(QString("ctl%1").arg(c.nId));
            slider->setRange(field.nMin, field.nMax);
            slider->setFixedWidth(90);
            slider->setToolTip(Label(c, 0, m_nLanguage));
            connect(slider, &QSlider::sliderReleased, this,
                    [this, slider, id = c.nId] { Q_EMIT SliderMoved(id, slider->value()); });
            connect(slider, &QSlider::actionTriggered, this, [this, slider, id = c.nId](int a) {
                if (a != QSlider::SliderMove) Q_EMIT SliderMoved(id, slider->sliderPosition());
            });
            Register(c.nId, slider);
            row->addWidget(slider);
        } else if (c.eKind == K::GALLERY) {
            const UstGalleryShape& shape = ShapeOf(c.nId);
            auto* gallery = new CRibbonGallery(c.nId, shape.tile, 0);
            gallery->InPlace()->hide();
            gallery->setToolTip(Label(c, 0, m_nLanguage));
            connect(gallery, &CRibbonGallery::Picked, this, &CRibbonBar::GalleryPicked);
            Register(c.nId, gallery);
            row->addWidget(gallery);
        }
    }
}

void CRibbonBar::Register(uint32_t id, QWidget* w) {
    m_controls[id] = w;
}

QWidget* CRibbonBar::Control(uint32_t id) const {
    const auto it = m_controls.find(id);
    return it == m_controls.end() ? nullptr : it->second;
}

QLineEdit* CRibbonBar::Field(uint32_t id) const {
    return qobject_cast<QLineEdit*>(Control(id));
}
QComboBox* CRibbonBar::Combo(uint32_t id) const {
    return qobject_cast<QComboBox*>(Control(id));
}
QSlider* CRibbonBar::Slider(uint32_t id) const {
    return qobject_cast<QSlider*>(Control(id));
}
CRibbonGallery* CRibbonBar::Gallery(uint32_t id) const {
    return qobject_cast<CRibbonGallery*>(Control(id));
}

uint32_t CRibbonBar::CurrentTab() const {
    return m_pTabs->tabData(m_pTabs->currentIndex()).toUInt();
}

void CRibbonBar::SetCurrentTab(uint32_t tab) {
    for (int i = 0; i < m_pTabs->count(); ++i)
        if (m_pTabs->tabData(i).toUInt() == tab && m_pTabs->isTabEnabled(i))
            m_pTabs->setCurrentIndex(i);
}

void CRibbonBar::SetCollapsed(bool collapsed) {
    m_bCollapsed = collapsed;
    m_pStack->setVisible(!collapsed);
    const QSignalBlocker block(m_pCollapse);
    m_pCollapse->setChecked(collapsed);
    m_pCollapse->setArrowType(collapsed ? Qt::DownArrow : Qt::UpArrow);
}

void CRibbonBar::SetTabEnabled(uint32_t tab, bool enabled) {
    for (int i = 0; i < m_pTabs->count(); ++i)
        if (m_pTabs->tabData(i).toUInt() == tab && m_pTabs->isTabEnabled(i) != enabled) {
            m_pTabs->setTabEnabled(i, enabled);
            m_pStack->widget(i)->setEnabled(enabled);
        }
}

bool CRibbonBar::IsTabEnabled(uint32_t tab) const {
    for (int i = 0; i < m_pTabs->count(); ++i)
        if (m_pTabs->tabData(i).toUInt() == tab) return m_pTabs->isTabEnabled(i);
    return false;
}

QByteArray CRibbonBar::SaveState() const {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << qint32{STATE_VERSION} << m_bCollapsed << quint32{CurrentTab()};
    return bytes;
}

bool CRibbonBar::RestoreState(const QByteArray& state) {
    QDataStream in(state);
    qint32 version = 0;
    bool collapsed = false;
    quint32 tab = 0;
    in >> version >> collapsed >> tab;
    if (in.status() != QDataStream::Ok || version != STATE_VERSION || !FindCommandTab(tab))
        return false;
    SetCollapsed(collapsed);
    SetCurrentTab(tab);
    return true;
}

}  // namespace orv
