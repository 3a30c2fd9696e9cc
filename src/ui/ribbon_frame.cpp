// The ribbon in the frame: made from the command table, its buttons wired
// to the frame's commands, its state kept per language, and the idle update
// of what is enabled and checked.
#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QCursor>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QToolBar>
#include <QToolButton>

#include "objects/text_object.h"
#include "project/project_manager.h"
#include "render/fixed_string.h"
#include "render/font_service.h"
#include "shell/command_table.h"
#include "ui/main_frame.h"
#include "ui/ribbon_bar.h"
#include "ui/ribbon_gallery.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int IDLE_UPDATE_MS = 200;
constexpr int PLAY_WINDOW_PANE = 553;  // the Play pane that 780 opens

struct UstComboItems {
    uint32_t nId;
    const char* szText[3];
    const char* szKorean[3];
};
constexpr UstComboItems COMBO_ITEMS[] = {
    {736, {"Cut", "Roll", "Crawl"}, {"컷", "롤", "크롤"}},
    {737, {"Solid Color", "Gradient", "Texture"}, {"단색", "그라데이션", "텍스처"}},
    {738, {"Drop", "Drag"}, {"드롭", "드래그"}},
};

}  // namespace

void CMainFrame::CreateRibbon() {
    AddRibbonHandlers();
    AddAttributeHandlers();
    m_pRibbon =
        new CRibbonBar(m_nLanguage, [this](const UstCommand& c) { return RibbonAction(c); });
    auto* bar = new QToolBar(tr("Ribbon"), this);
    bar->setObjectName("RibbonBar");
    bar->setMovable(false);
    bar->setFloatable(false);
    bar->addWidget(m_pRibbon);
    addToolBar(Qt::TopToolBarArea, bar);
    addToolBarBreak();
    connect(m_pRibbon, &CRibbonBar::FieldEdited, this, &CMainFrame::OnRibbonField);
    connect(m_pRibbon, &CRibbonBar::ComboChosen, this, &CMainFrame::OnRibbonCombo);
    connect(m_pRibbon, &CRibbonBar::SliderMoved, this, &CMainFrame::OnRibbonSlider);
    connect(m_pRibbon, &CRibbonBar::GalleryPicked, this,
            [this](uint32_t id, int index) { RunCommand(id, index); });
    connect(m_pRibbon, &CRibbonBar::TabChanged, this, [this] { UpdateRibbon(); });
    for (const UstComboItems& items : COMBO_ITEMS)
        if (QComboBox* combo = m_pRibbon->Combo(items.nId))
            for (int i = 0; i < 3 && items.szText[i]; ++i)
                combo->addItem(QString::fromUtf8(m_nLanguage == LANG_KOREAN ? items.szKorean[i]
                                                                            : items.szText[i]));
    FillFontGallery();
    FillSymbolGallery();
    FillStyleGalleries();
    FillEffectGallery();
    FillPaletteGallery();
    m_idle.setInterval(IDLE_UPDATE_MS);
    connect(&m_idle, &QTimer::timeout, this, &CMainFrame::UpdateRibbon);
    m_idle.start();
    UpdateRibbon();
}

// A command that a menu made already keeps its one action; the ribbon's
// button shows it.
QAction* CMainFrame::RibbonAction(const UstCommand& c) {
    const QString name = QString("cmd%1").arg(c.nId);
    QAction* action = findChild<QAction*>(name);
    if (!action) {
        action = new QAction(this);
        action->setObjectName(name);
        // Made here, it has no handler of its own: RunCommand must know it.
        action->setProperty("ribbonMade", true);
        connect(action, &QAction::triggered, this, [this, id = c.nId] { RunCommand(id); });
    }
    action->setText(CRibbonBar::Label(c, 1, m_nLanguage));
    action->setToolTip(CRibbonBar::Label(c, 0, m_nLanguage));
    if (c.szIcon[0]) action->setIcon(QIcon::fromTheme(QString::fromLatin1(c.szIcon)));
    if (c.eKind == ECommandKind::TOGGLE) action->setCheckable(true);
    // The key works whichever tab shows, so the window holds it.
    if (c.szKeys[0]) {
        action->setShortcut(
            QKeySequence(QString::fromLatin1(c.szKeys), QKeySequence::PortableText));
        addAction(action);
    }
    return action;
}

bool CMainFrame::RunCommand(uint32_t id, int index) {
    const auto it = m_commands.find(id);
    if (it != m_commands.end()) {
        if (IsCommandEnabled(id)) it->second(index);
        UpdateRibbon();
        return true;
    }
    const UstCommand* c = FindCommand(id);
    if (c && c->eKind == ECommandKind::STEP) {
        OnRibbonStep(id);
        return true;
    }
    QAction* action = findChild<QAction*>(QString("cmd%1").arg(id));
    if (!action) return false;
    action->trigger();
    return true;
}

void CMainFrame::AddRibbonHandlers() {
    const auto page = [this](uint32_t id) {
        return [this, id](int) {
            if (CZevrantView* view = ActiveView()) view->PageCommand(id);
        };
    };
    for (uint32_t id : {500u, 501u, 502u, 503u, 504u, 505u, 506u, 507u, 508u, 509u, 510u, 1500u,
                        1501u, 1502u, 1503u})
        m_commands[id] = page(id);
    for (const UstCommandTab& tab : CommandTabs())
        m_commands[tab.nId] = [this, id = tab.nId](int) { m_pRibbon->SetCurrentTab(id); };
    m_commands[CMD_MASTER_MODE] = [this](int) { m_bMasterMode = !m_bMasterMode; };
    // The drop-down buttons open their lists.
    for (uint32_t id : {244u, 247u, 248u})
        m_commands[id] = [this, id](int) {
            if (auto* b = qobject_cast<QToolButton*>(m_pRibbon->Control(id))) b->showMenu();
        };
    m_commands[CMD_INSERT_PICTURE] = [this](int) { InsertPictureFile(CMD_INSERT_PICTURE_FILE); };
    m_commands[CMD_INSERT_BACKGROUND] = [this](int) {
        InsertPictureFile(CMD_INSERT_BACKGROUND_FILE);
    };
    // Find and Select All are the canvas's, with their dialog and rules.
    for (uint32_t id : {57636u, 57642u})
        m_commands[id] = [this, id](int) { CanvasCommand(id); };
    m_commands[1312] = [this](int) {
        if (m_pRecentMenu) m_pRecentMenu->exec(QCursor::pos());
    };
    // A fade is a flag the page flips; several pages all take the flipped
    // value of the current one.
    for (uint32_t id : {764u, 765u})
        m_commands[id] = [this, id](int) {
            CZevrantView* view = ActiveView();
            const CPageManager* page = view ? view->Page() : nullptr;
            if (!page) return;
            SendEffectValue(id, id == 764 ? !page->m_effect.bInFade : !page->m_effect.bOutFade);
        };
    for (uint32_t id : {40046u, 40045u, 40047u, 40043u, 40040u, 40041u, 40035u, 40036u, 40052u,
                        40038u, 40044u, 40042u, 40039u, 40034u, 40037u})
        m_commands[id] = [this, id](int index) {
            if (StyleCommand(id, index)) FillStyleGalleries();
        };
    m_commands[CMD_EFFECT_GALLERY] = [this](int index) {
        OnEffectGallery(index, QApplication::keyboardModifiers());
    };
    m_commands[736] = [this](int index) {
        ChangePageType(static_cast<uint32_t>(index));
        UpdateRibbon();
    };
}

void CMainFrame::AddAttributeHandlers() {
    for (uint32_t id = CMD_BODY_PAINT; id <= CMD_SHADOW_PAINT; ++id)
        m_commands[id] = [this, id](int) { m_nPaintSlot = static_cast<int>(id - CMD_BODY_PAINT); };
    m_commands[219] = [this](int) { ChooseRibbonColor(); };
    m_commands[737] = [this](int index) {
        UstFill fill = GetAttrForSelection().attr.fill[m_nPaintSlot];
        if (index == 1) {
            ChooseGradientPaint(m_nPaintSlot);
            return;
        }
        if (index == 2) {
            const QString file =
                QFileDialog::getOpenFileName(this, tr("Open"), {}, PictureFileFilter());
            if (file.isEmpty()) return;
            QStringToFixed(file, &fill.szImage);
        }
        fill.nType = static_cast<uint32_t>(index);
        GetAttrForSelection().attr.fill[m_nPaintSlot] = fill;
        RouteCommand(&fill, CMD_BODY_PAINT + static_cast<uint32_t>(m_nPaintSlot));
    };
    m_commands[738] = [this](int index) {
        UstDefaultAttr& rec = GetAttrForSelection();
        if (rec.effect.nShadowType == index) return;
        rec.effect.nShadowType = index;
        RouteCommand(&rec.effect, 738);
    };
    m_commands[202] = [this](int index) {
        if (QComboBox* combo = m_pRibbon->Combo(202)) ChooseFontFromGallery(combo->itemText(index));
    };
    m_commands[CMD_FONT_GALLERY] = [this](int index) {
        const QStringList recent = RecentFonts();
        const QStringList all = GalleryFontFamilies().families;
        ChooseFontFromGallery(index < recent.size() ? recent.value(index)
                                                    : all.value(index - recent.size()));
    };
    m_commands[CMD_SIZE_GALLERY] = [this](int index) {
        CRibbonGallery* g = m_pRibbon->Gallery(CMD_SIZE_GALLERY);
        if (!g || index < 0 || index >= g->InPlace()->count()) return;
        OnRibbonField(CMD_FONT_SIZE, g->InPlace()->item(index)->text());
    };
    m_commands[CMD_PALETTE] = [this](int index) {
        CRibbonGallery* g = m_pRibbon->Gallery(CMD_PALETTE);
        if (!g || index < 0 || index >= g->InPlace()->count()) return;
        UstFill& fill = GetAttrForSelection().attr.fill[m_nPaintSlot];
        fill.nType = 0;
        fill.clrSolid = g->InPlace()->item(index)->data(Qt::UserRole).toUInt();
        RouteCommand(&fill, CMD_BODY_PAINT + static_cast<uint32_t>(m_nPaintSlot));
    };
    m_commands[CMD_SYMBOL_GALLERY] = [this](int index) {
        CRibbonGallery* g = m_pRibbon->Gallery(CMD_SYMBOL_GALLERY);
        if (!g || index < 0 || index >= g->InPlace()->count()) return;
        const uint32_t code = g->InPlace()->item(index)->data(Qt::UserRole).toUInt();
        if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_SYMBOL, &code);
    };
}

void CMainFrame::ChooseRibbonColor() {
    UstFill fill = GetAttrForSelection().attr.fill[m_nPaintSlot];
    const QColor colour = QColorDialog::getColor(QColor::fromRgba(fill.clrSolid), this, {},
                                                 QColorDialog::ShowAlphaChannel);
    if (!colour.isValid()) return;
    fill.nType = 0;
    fill.clrSolid = colour.rgba();
    GetAttrForSelection().attr.fill[m_nPaintSlot] = fill;
    RouteCommand(&fill, CMD_BODY_PAINT + static_cast<uint32_t>(m_nPaintSlot));
}

void CMainFrame::OnRibbonCombo(uint32_t id, int index) {
    RunCommand(id, index);
}

bool CMainFrame::IsCommandEnabled(uint32_t id) const {
    const UstCommand* c = FindCommand(id);
    if (!c) return false;
    const UstCommandTab* tab = FindCommandTab(CommandTab(id));
    if (tab && tab->bEditTab && m_nPlayState != 0) return false;
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    const bool edit = m_nPlayState == 0;
    switch (c->eRule) {
        case ECommandRule::ALWAYS:
            return true;
        case ECommandRule::PROJECT:
            return view != nullptr;
        case ECommandRule::EDIT:
            return edit;
        case ECommandRule::SELECTION:
            return edit && page && !page->Selection().empty();
        case ECommandRule::TEXT:
            return edit && page && page->AnySelectedOfKind(OBJ_TEXT);
        case ECommandRule::PICTURE:
            return edit && page && page->OneSelectedOfKind(OBJ_PICTURE);
        case ECommandRule::EFFECT:
            return page && m_nPlayState != 2;
        case ECommandRule::SCROLL:
            return page && m_nPlayState != 2 && page->IsScrollPage();
        case ECommandRule::BOARD:
            return m_pBoard != nullptr;
    }
    return false;
}

void CMainFrame::UpdateRibbon() {
    if (!m_pRibbon) return;
    const bool project = ActiveView() != nullptr;
    for (const UstCommandTab& tab : CommandTabs())
        m_pRibbon->SetTabEnabled(tab.nId, tab.bEditTab ? m_nPlayState == 0 : project);
    for (const auto& [id, widget] : m_pRibbon->Controls()) {
        // A menu's action may know more, such as an empty clipboard.
        const auto* button = qobject_cast<QToolButton*>(widget);
        const QAction* action = button ? button->defaultAction() : nullptr;
        const bool on = IsCommandEnabled(id) && (!action || action->isEnabled());
        if (widget->isEnabled() != on) widget->setEnabled(on);
    }
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    const auto check = [this](uint32_t id, bool on) {
        if (auto* b = qobject_cast<QToolButton*>(m_pRibbon->Control(id)))
            if (QAction* a = b->defaultAction(); a && a->isChecked() != on) a->setChecked(on);
    };
    for (int slot = 0; slot < 4; ++slot)
        check(CMD_BODY_PAINT + static_cast<uint32_t>(slot), m_nPaintSlot == slot);
    check(207, m_nCanvasMode == MODE_TEXT);
    check(208, m_nCanvasMode == MODE_SELECT);
    check(777, m_nPlayState != 0);
    check(780, Pane(PLAY_WINDOW_PANE) && Pane(PLAY_WINDOW_PANE)->isVisible());
    check(764, page && page->m_effect.bInFade);
    check(765, page && page->m_effect.bOutFade);
    check(800, page && page->m_effect.bDiscard);
    const auto select = [this](uint32_t id, int index) {
        QComboBox* combo = m_pRibbon->Combo(id);
        if (combo && !combo->hasFocus() && combo->currentIndex() != index)
            combo->setCurrentIndex(index);
    };
    const UstDefaultAttr& rec = GetAttrForSelection();
    select(736, page ? static_cast<int>(page->m_nPageType) : -1);
    select(737, static_cast<int>(rec.attr.fill[m_nPaintSlot].nType));
    select(738, rec.effect.nShadowType);
    if (QComboBox* face = m_pRibbon->Combo(202); face && !face->hasFocus())
        face->setCurrentText(FixedToQString(&rec.font.szFace));
    UpdateRibbonValues();
}

}  // namespace orv
