#include "ui/auto_dlg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "playout/play_engine.h"
#include "playout/scroll_speed.h"
#include "project/page_manager.h"
#include "shell/key_routing.h"
#include "ui/play_dlg.h"
#include "ui/program_monitor.h"

namespace orv {

namespace {

constexpr int MAX_REPEAT = 10000;
constexpr int MONITOR_WIDTH = 160, MONITOR_HEIGHT = 90;

QImage ThumbOf(const CPageManager& page) {
    const QImage thumb = ThumbImage(page);
    return thumb.isNull() ? thumb
                          : thumb.scaled(MONITOR_WIDTH, MONITOR_HEIGHT, Qt::IgnoreAspectRatio,
                                         Qt::SmoothTransformation);
}

QPushButton* Button(const QString& text, int id, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(QString("ctl%1").arg(id));
    button->setFocusPolicy(Qt::NoFocus);  // the keys stay with the list
    return button;
}

QLabel* Monitor(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setFixedSize(MONITOR_WIDTH, MONITOR_HEIGHT);
    label->setStyleSheet("background: black");
    return label;
}

}  // namespace

CPropAuto::CPropAuto(UstPlayContext context, CDecklinkPipeline* pipeline, QWidget* parent)
    : QWidget(parent), m_context(std::move(context)), m_pPipeline(pipeline) {
    BuildControls();
}

QWidget* CPropAuto::BuildMonitors() {
    auto* box = new QWidget(this);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(tr("PROGRAM"), box), 0, 0);
    grid->addWidget(new QLabel(tr("PREVIEW"), box), 0, 1);
    QWidget* program = nullptr;
    if (m_pPipeline) {
        // What the output sends, taken from it: never drawn again here.
        m_pProgram = new CProgramMonitor(m_pPipeline, box);
        m_pProgram->setWindowFlags(Qt::Widget);
        m_pProgram->setFixedSize(MONITOR_WIDTH, MONITOR_HEIGHT);
        program = m_pProgram;
    } else {
        program = Monitor(box);
    }
    program->setObjectName("program");
    grid->addWidget(program, 1, 0);
    m_pPreview = Monitor(box);
    m_pPreview->setObjectName("preview");
    grid->addWidget(m_pPreview, 1, 1);
    m_pOnAir = new QLabel(box);
    m_pOnAir->setObjectName("onair");
    grid->addWidget(m_pOnAir, 2, 0);
    m_pStage = new QLabel(box);
    grid->addWidget(m_pStage, 2, 1);
    m_pStageBar = new QProgressBar(box);
    m_pStageBar->setRange(0, 0);
    m_pStageBar->setMaximumHeight(8);
    m_pStageBar->setTextVisible(false);
    m_pStageBar->hide();
    grid->addWidget(m_pStageBar, 3, 0, 1, 2);
    return box;
}

void CPropAuto::BuildControls() {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildMonitors());
    auto* keys = new QGridLayout;
    const struct {
        const char* text;
        int id, key, row, column;
    } BUTTONS[] = {{QT_TR_NOOP("Run (ENTER)"), 1012, vk::RETURN, 0, 0},
                   {QT_TR_NOOP("Stop (*)"), 1019, vk::MULTIPLY, 0, 1},
                   {QT_TR_NOOP("Erase (F12)"), 1021, vk::F12, 0, 2},
                   // The two press up and down, which play mode does not use.
                   {QT_TR_NOOP("Fast (+)"), 1026, vk::UP, 1, 0},
                   {QT_TR_NOOP("Slow (-)"), 1029, vk::DOWN, 1, 1}};
    for (const auto& b : BUTTONS) {
        QPushButton* button = Button(tr(b.text), b.id, this);
        connect(button, &QPushButton::clicked, this, [this, key = b.key] { OnKey(key); });
        keys->addWidget(button, b.row, b.column);
    }
    layout->addLayout(keys);

    auto* form = new QGridLayout;
    const auto spin = [&](const QString& text, int id, int row, int low, int high) {
        auto* box = new QSpinBox(this);
        box->setObjectName(QString("ctl%1").arg(id));
        box->setRange(low, high);
        form->addWidget(new QLabel(text, this), row, 0);
        form->addWidget(box, row, 1);
        return box;
    };
    m_pStart = spin(tr("Start:"), 1041, 0, 1, 1);
    m_pEnd = spin(tr("End:"), 1050, 1, 1, 1);
    m_pRepeat = spin(tr("Repeat:"), 1059, 2, 0, MAX_REPEAT);
    m_pRepeat->setValue(1);
    m_pMoveTo = new QLineEdit(this);
    m_pMoveTo->setObjectName("ctl1060");
    form->addWidget(new QLabel(tr("MoveTo:"), this), 3, 0);
    form->addWidget(m_pMoveTo, 3, 1);
    layout->addLayout(form);
    m_pIgnore = new QCheckBox(tr("Ignore discarded"), this);
    m_pIgnore->setObjectName("ctl1054");
    layout->addWidget(m_pIgnore);
    m_pMode = new QButtonGroup(this);
    auto* modes = new QHBoxLayout;
    for (const auto& [text, id] : {std::pair{tr("Manual"), 1086}, std::pair{tr("Auto"), 1087}}) {
        auto* radio = new QRadioButton(text, this);
        radio->setObjectName(QString("ctl%1").arg(id));
        m_pMode->addButton(radio, id - 1086);
        modes->addWidget(radio);
    }
    m_pMode->button(PLAYLIST_MANUAL)->setChecked(true);
    layout->addLayout(modes);
    layout->addStretch(1);

    connect(m_pStart, &QSpinBox::valueChanged, this, &CPropAuto::OnStartChanged);
    connect(m_pEnd, &QSpinBox::valueChanged, this, &CPropAuto::OnEndChanged);
    connect(m_pRepeat, &QSpinBox::valueChanged, this, [this](int v) { m_list.m_nRepeat = v; });
    connect(m_pIgnore, &QCheckBox::toggled, this,
            [this](bool on) { m_list.m_bIgnoreDiscard = on; });
    connect(m_pMode, &QButtonGroup::idClicked, this, &CPropAuto::OnModeChanged);
    connect(m_pMoveTo, &QLineEdit::returnPressed, this, &CPropAuto::TakeMoveTo);
}

// The page list changes only here, on entering play mode, while the engine
// rests.
void CPropAuto::SetPages(std::vector<CPageManager*> pages) {
    const int count = static_cast<int>(pages.size());
    m_list.m_pPages = std::move(pages);
    for (QSpinBox* box : {m_pStart, m_pEnd})
        box->setRange(1, std::max(count, 1));
    if (!m_bRangeSet) m_pEnd->setValue(std::max(count, 1));  // the whole list at first
    m_bRangeSet = true;
    m_list.m_nStart = m_pStart->value() - 1;
    m_list.m_nEnd = m_pEnd->value() - 1;
    SetCursor(std::clamp(Cursor(), 0, std::max(count - 1, 0)));
    ShowPreview(Cursor());
}

void CPropAuto::SetCursor(int index) {
    m_list.m_nCurrent = index;
    if (m_list.m_nMode.load() == PLAYLIST_MANUAL) ShowPreview(index);  // what Run takes next
    Q_EMIT CursorMoved(index);
}

int CPropAuto::NextPreview(int index) const {
    if (m_list.Count() == 0) return -1;
    int wrapped = 0;
    return NextPlayIndex(m_list, index, wrapped, 0);
}

void CPropAuto::OnKey(int key) {
    if (m_bKeysOff) return;
    switch (key) {
        case vk::F8:
            key = vk::PRIOR;
            break;
        case vk::F9:
            key = vk::NEXT;
            break;
        case vk::F10:
            key = vk::RETURN;
            break;
        case vk::F11:
            key = vk::MULTIPLY;
            break;
        default:
            break;
    }
    if (key >= vk::NUMPAD0 && key <= vk::NUMPAD9 && m_pMoveTo->hasFocus())
        return m_pMoveTo->insert(QString::number(key - vk::NUMPAD0));
    if (key < vk::RETURN || key > vk::F12) return;
    CPlayEngine* engine = Engine();
    switch (key) {
        case vk::RETURN:
            if (!m_pMoveTo->text().isEmpty()) return TakeMoveTo();
            return Run();
        case vk::PRIOR:
        case vk::NEXT:
        case vk::END:
        case vk::HOME:
            if (PlayState() == 1) MoveCursor(key);
            return;
        case vk::MULTIPLY:
            if (engine) engine->Key(PLAYKEY_STOP);
            return;
        case vk::F12:
            if (engine) engine->Key(PLAYKEY_ERASE);
            return;
        case vk::ADD:
        case vk::SUBTRACT:
            if (PlayState() == 2) ChangeScrollSpeed(key == vk::ADD ? 1 : -1);
            return;
        case vk::DIVIDE:
            m_pMoveTo->clear();
            m_pMoveTo->setFocus();
            return;
        default:
            return;
    }
}

void CPropAuto::Run() {
    CPlayEngine* engine = Engine();
    if (!engine) return;
    if (engine->State() == PLAY_IDLE && m_list.m_nMode.load() == PLAYLIST_AUTO &&
        m_list.m_nEnd.load() < m_list.m_nStart.load()) {
        m_list.m_nEnd = m_list.m_nStart.load();
        const QSignalBlocker block(m_pEnd);
        m_pEnd->setValue(m_list.m_nStart + 1);
    }
    engine->Key(PLAYKEY_RUN);
}

void CPropAuto::MoveCursor(int key) {
    const int last = std::max(m_list.Count() - 1, 0);
    int index = Cursor();
    if (key == vk::PRIOR) index = std::max(index - 1, 0);
    if (key == vk::NEXT) index = std::min(index + 1, last);
    if (key == vk::END) index = last;
    if (key == vk::HOME) index = 0;
    SetCursor(index);
    ShowPreview(index);
}

void CPropAuto::ChangeScrollSpeed(int delta) {
    const int index = Cursor();
    if (index < 0 || index >= m_list.Count()) return;
    CPageManager* page = m_list.m_pPages[static_cast<size_t>(index)];
    if (delta > 0)
        Faster(page);
    else
        Slower(page);
}

void CPropAuto::TakeMoveTo() {
    bool ok = false;
    const int page = m_pMoveTo->text().toInt(&ok);
    m_pMoveTo->clear();
    if (ok && page >= 1 && page <= m_list.Count()) {
        SetCursor(page - 1);
        ShowPreview(page - 1);
    }
}

void CPropAuto::OnStartChanged(int start) {
    m_list.m_nStart = start - 1;
    if (m_pEnd->value() < start) m_pEnd->setValue(start);
    SetCursor(start - 1);
    ShowPreview(start - 1);
}

void CPropAuto::OnEndChanged(int end) {
    m_list.m_nEnd = end - 1;
}

void CPropAuto::OnModeChanged(int mode) {
    m_list.m_nMode = mode;
    if (mode == PLAYLIST_AUTO) SetCursor(m_list.m_nStart.load());
}

void CPropAuto::ShowPreview(int index) {
    if (index < 0 || index >= m_list.Count()) {
        m_pPreview->clear();
        return;
    }
    m_pPreview->setPixmap(
        QPixmap::fromImage(ThumbOf(*m_list.m_pPages[static_cast<size_t>(index)])));
}

void CPropAuto::OnPlayState(int state, int param) {
    if (state == PLAY_LOAD) {
        m_pOnAir->setText(tr("ON AIR: page %1").arg(param + 1));
        ShowPreview(m_list.m_nMode.load() == PLAYLIST_AUTO ? NextPreview(param) : Cursor());
    }
    if (state == PLAY_IDLE && param == 0 && m_list.m_nMode.load() == PLAYLIST_AUTO)
        SetCursor(std::clamp(Cursor(), 0, std::max(m_list.Count() - 1, 0)));
    Q_EMIT CursorMoved(Cursor());  // the list machine moves it on as it takes a page
    ShowStage(state, param);
}

void CPropAuto::ShowStage(int state, int param) {
    if (state == PLAY_BLINK || state == PLAY_LIVE) {
        m_pStage->setText(state == PLAY_BLINK ? tr("Blink") : tr("Animation"));
        m_pStageBar->show();
    } else if (state == PLAY_OUT) {
        m_pStageBar->hide();
        const int next = NextPreview(param);
        const CPageManager* page = next >= 0 ? m_list.m_pPages[static_cast<size_t>(next)] : nullptr;
        m_pStage->setText(!page                    ? QString()
                          : page->HasAnimation()   ? tr("Next: Animation")
                          : page->HasBlinkObject() ? tr("Next: Blink")
                                                   : QString());
    } else if (state == PLAY_GONE || state == PLAY_IDLE) {
        m_pStageBar->hide();
        m_pStage->clear();
        if (state == PLAY_GONE) m_pOnAir->clear();
    }
}

CPropAutoA::CPropAutoA(UstPlayContext context, QWidget* parent)
    : QWidget(parent), m_context(std::move(context)) {
    auto* layout = new QVBoxLayout(this);
    m_pList = new QListWidget(this);
    m_pList->setObjectName("logopages");
    layout->addWidget(m_pList);
    auto* buttons = new QHBoxLayout;
    const std::pair<QString, void (CPropAutoA::*)()> ACTIONS[] = {
        {tr("Run"), &CPropAutoA::RunLogo},
        {tr("Stop"), &CPropAutoA::StopLogo},
        {tr("Erase"), &CPropAutoA::EraseLogo}};
    for (const auto& [text, action] : ACTIONS) {
        auto* button = new QPushButton(text, this);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, action);
        buttons->addWidget(button);
    }
    layout->addLayout(buttons);
    m_pOnAir = new QLabel(tr("ON AIR"), this);
    layout->addWidget(m_pOnAir);
    layout->addWidget(new QLabel(tr("PREVIEW"), this));
    m_pPreview = Monitor(this);
    layout->addWidget(m_pPreview);
}

void CPropAutoA::SetPages(std::vector<CPageManager*> pages) {
    StopLogo();
    m_pLogo = nullptr;
    m_pages = std::move(pages);
    m_pList->clear();
    for (size_t i = 0; i < m_pages.size(); ++i)
        m_pList->addItem(tr("Page %1").arg(i + 1));
}

// A logo is drawn only while the engine rests: the page is the engine's
// while it draws it.
void CPropAutoA::RunLogo() {
    const int row = m_pList->currentRow();
    CPlayEngine* engine = m_context.engine ? m_context.engine() : nullptr;
    if (row < 0 || row >= static_cast<int>(m_pages.size()) || !engine || engine->IsLocked()) return;
    StopLogo();
    m_pLogo = m_pages[static_cast<size_t>(row)];
    UstBufferInfo info;
    engine->GetBufferInfo(info);
    m_frame.assign(static_cast<size_t>(info.rc.Width()) * info.rc.Height(), 0u);
    if (!m_frame.empty())
        m_pLogo->DrawForPlay(m_frame.data(), nullptr, info.rc.Width(), info.rc.Height());
    engine->GetEffect().Reserved2();  // a logo layer on a card that has one
    const QImage thumb = ThumbOf(*m_pLogo);
    m_pPreview->setPixmap(QPixmap::fromImage(thumb));
    // The picture crosses to this thread as a copy; a late one for a logo
    // since stopped is dropped with the tab.
    m_animator.Start(
        *m_pLogo, m_frame, info.rc.Width(), info.rc.Height(), std::max(thumb.width(), 1),
        std::max(thumb.height(), 1), [this](std::vector<uint32_t> picture, int w, int h) {
            QMetaObject::invokeMethod(
                this,
                [this, picture = std::move(picture), w, h] {
                    if (!m_animator.Running()) return;
                    const QImage image(reinterpret_cast<const uchar*>(picture.data()), w, h, w * 4,
                                       QImage::Format_ARGB32_Premultiplied);
                    m_pPreview->setPixmap(QPixmap::fromImage(image));
                },
                Qt::QueuedConnection);
        });
    m_pOnAir->setText(tr("ON AIR") + ": " + tr("Page %1").arg(row + 1));
}

void CPropAutoA::StopLogo() {
    m_animator.Stop();
    if (m_pLogo) m_pOnAir->setText(tr("ON AIR"));
}

void CPropAutoA::EraseLogo() {
    if (!m_pLogo) return;
    m_animator.Stop();
    std::fill(m_frame.begin(), m_frame.end(), 0u);
    if (CPlayEngine* engine = m_context.engine ? m_context.engine() : nullptr)
        engine->ClearOutput();
    m_pLogo = nullptr;
    m_pPreview->clear();
    m_pOnAir->setText(tr("ON AIR"));
}

CAutoDlg::CAutoDlg(UstPlayContext context, CDecklinkPipeline* pipeline, QWidget* parent)
    : QWidget(parent),
      m_pTabs(new QTabWidget(this)),
      m_pAuto(new CPropAuto(context, pipeline, m_pTabs)),
      m_pLogo(new CPropAutoA(context, m_pTabs)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pTabs->addTab(m_pAuto, tr("Play Out"));
    m_pTabs->addTab(m_pLogo, tr("Logo"));
    layout->addWidget(m_pTabs);
}

void CAutoDlg::SetPages(std::vector<CPageManager*> pages) {
    m_pLogo->SetPages(pages);
    m_pAuto->SetPages(std::move(pages));
}

}  // namespace orv
