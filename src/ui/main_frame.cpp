#include "ui/main_frame.h"

#include <QAction>
#include <QCloseEvent>
#include <QDataStream>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>

#include "objects/text_object.h"
#include "project/project_manager.h"
#include "project/style_library.h"
#include "render/font_service.h"
#include "render/image_file.h"
#include "render/text_measure.h"
#include "shell/app_object.h"
#include "shell/command_table.h"
#include "shell/frame_rules.h"
#include "shell/settings_files.h"
#include "ui/auto_dlg.h"
#include "ui/child_frame.h"
#include "ui/control_tab.h"
#include "ui/options_dialog.h"
#include "ui/pane_dialogs.h"
#include "ui/play_dlg.h"
#include "ui/preview_dlg.h"
#include "ui/ribbon_bar.h"
#include "ui/splash_screen.h"
#include "ui/zevrant_doc.h"
#include "ui/zevrant_view.h"

namespace orv {

namespace {

constexpr int SPLASH_TIMEOUT_MS = 4000;
constexpr int PREVIEW_PIXELS = 300 * 225;
constexpr int CMD_OPTIONS = 40082;
constexpr int LAYOUT_VERSION = 1;

struct UstStatusPane {
    int nId;
    int nWidth;
};
constexpr UstStatusPane STATUS_PANES[] = {{100, 100}, {101, 50}, {102, 100}, {5, 100}, {104, 150}};

}  // namespace

CMainFrame::CMainFrame(const UstFolders& folders, uint16_t language, CGBoard* board)
    : m_folders(folders), m_nLanguage(language), m_pBoard(board) {
    setObjectName("MainFrame");
    LoadDefaultAttr(m_folders.DataIni(), m_DefaultAttr, DefaultGuiFaceName());
    LoadEnv(m_folders.EnvIni(), m_Env, language);
    m_WorkAttr = m_DefaultAttr;
    m_pStyles = std::make_unique<CStyleLibraries>(m_folders, language == 18);
    m_pStyles->Load();
    m_PreviewImage.assign(PREVIEW_PIXELS, 0);
    m_timer.setTimerType(Qt::CoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CMainFrame::OnTimer);
}

CMainFrame::~CMainFrame() {
    disconnect(m_focusWatch);
    // The base destructor hides the children, and hiding the document area
    // announces a new active page; by then this object is only a widget, so
    // nothing of ours may still be listening.
    for (QObject* child : findChildren<QObject*>())
        disconnect(child, nullptr, this, nullptr);
    // The list pane goes first, then the engine, while the board they use
    // still stands. The style lists need nothing here: each change was
    // written when it was made. The settings are written last, and only here, so that a program
    // that dies keeps those of its last proper exit.
    delete m_pAutoPane;
    m_pAutoDlg = nullptr;
    ControlEngineGone();
    m_pPlayEngine.reset();
    DetachBoard();
    m_PreviewImage.clear();
    SaveDefaultAttr(m_folders.DataIni(), m_DefaultAttr);
    SaveEnv(m_folders.EnvIni(), m_Env);
}

QString CMainFrame::LayoutName(const char* base, uint16_t language) {
    return QString::fromLatin1(base) + QString::number(language);
}

bool CMainFrame::OnCreate() {
    const QString title = QString::asprintf("%s Ver%.2f", APP_NAME, APP_VERSION);
    setWindowTitle(title);
    m_pSplash = new CSplashScreenEx(MAKER_NAME, title, SPLASH_TIMEOUT_MS);
    m_pSplash->show();
    m_pSplash->SetStatus(tr("Initializing..."));

    m_pMdi = new QMdiArea(this);
    m_pMdi->setBackground(QColor::fromRgba(CZevrantView::SURROUND));
    connect(m_pMdi, &QMdiArea::subWindowActivated, this, [this] { RefreshPagePanes(); });
    setCentralWidget(m_pMdi);
    CreateStatusBar();

    m_pSplash->SetStatus(tr("Loading fonts, icons, styles, ribbon menu..."));
    CreateCommandBars();
    m_pSplash->SetStatus(tr("Initializing docking panes..."));
    CreatePanes();
    CreateStylesPane();
    CreateDataPane();
    RestoreInterfaceState();
    LoadSkin();
    if (m_pBoard) {
        m_pSplash->SetStatus(tr("Initializing hardware...."));
        m_pBoard->Reserved1();  // the board's late initialisation
        AttachBoard();
    }
    ShowModeName();

    delete m_pSplash;
    m_pSplash = nullptr;
    RestartAutoSaveTimer();
    return true;
}

void CMainFrame::CreateStatusBar() {
    for (const UstStatusPane& pane : STATUS_PANES) {
        auto* label = new QLabel(this);
        label->setObjectName(QString("pane%1").arg(pane.nId));
        label->setMinimumWidth(pane.nWidth);
        label->setFrameShape(QFrame::StyledPanel);
        label->setFrameShadow(QFrame::Sunken);
        statusBar()->addPermanentWidget(label);
        m_panesStatus.push_back(label);
    }
}

// The ribbon carries the commands; the menu bar keeps only File and Help.
// The editor's other commands live in menus that the canvas opens on a
// right click, and their keys work from anywhere in the window.
void CMainFrame::CreateCommandBars() {
    CreateEditMenu();
    CreateArrangeMenu();
    CreatePageMenu();
    CreateTextMenu();
    CreateShapeMenu();
    CreateLiveMenu();
    CreateBoardMenu();
    CreateInsertMenu();
    CreatePlayMenu();
    for (QMenu* menu : m_commandMenus)
        AddShortcutsOf(menu);
    CreateFileMenu();
    CreateViewMenu();
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&About"), this, [this] {
        QMessageBox::about(this, windowTitle(),
                           QString::asprintf("%s Ver%.2f", APP_NAME, APP_VERSION));
    });
    CreateRibbon();
    CreateQuickAccessBar();
}

void CMainFrame::CreateFileMenu() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName("FileMenu");
    AddProjectFileActions(file);
    file->addSeparator();
    for (const char* name : {"cmd806", "cmd807"})
        if (QAction* import = findChild<QAction*>(name)) file->addAction(import);
    QAction* exportTga =
        file->addAction(tr("Export page to Image (TGA 32)"), this, &CMainFrame::ExportPageToTga);
    exportTga->setStatusTip(tr("Save to TGA 32bit image."));
    exportTga->setObjectName("cmd40016");
    file->addSeparator();
    QAction* options = file->addAction(tr("&Options..."), this, &CMainFrame::ShowOptions);
    options->setData(CMD_OPTIONS);
    options->setObjectName("cmd40082");
    file->addSeparator();
    QAction* exit = file->addAction(tr("E&xit"), this, &QWidget::close);
    exit->setShortcut(QKeySequence::Quit);
}

// Save, Undo and Redo above the ribbon, where every tab can reach them.
void CMainFrame::CreateQuickAccessBar() {
    auto* bar = new QToolBar(tr("Quick Access"), this);
    bar->setObjectName("QuickAccessBar");
    bar->setMovable(false);
    bar->setIconSize(QSize(16, 16));
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    const std::pair<const char*, const char*> items[] = {
        {"cmd57603", "document-save"}, {"cmd57643", "edit-undo"}, {"cmd57644", "edit-redo"}};
    for (const auto& [name, icon] : items)
        if (QAction* action = findChild<QAction*>(name)) {
            if (action->icon().isNull()) action->setIcon(QIcon::fromTheme(icon));
            bar->addAction(action);
        }
    m_pRibbon->SetQuickAccess(bar);
}

QMenu* CMainFrame::CommandMenu(const QString& title) {
    auto* menu = new QMenu(title, this);
    m_commandMenus.push_back(menu);
    return menu;
}

// A menu that is never shown in the bar still lends its keys to the window.
void CMainFrame::AddShortcutsOf(QMenu* menu) {
    for (QAction* action : menu->actions()) {
        if (action->menu())
            AddShortcutsOf(action->menu());
        else if (!action->shortcut().isEmpty())
            addAction(action);
    }
}

// Their keys reach the actions without the menu, so the actions themselves
// go off; those on the ribbon follow its own update instead.
void CMainFrame::SetMenuEnabled(QMenu* menu, bool enabled) {
    menu->setEnabled(enabled);
    for (QAction* action : menu->actions()) {
        if (action->menu())
            SetMenuEnabled(action->menu(), enabled);
        else if (!FindCommand(action->objectName().mid(3).toUInt()))
            action->setEnabled(enabled);
    }
}

void CMainFrame::ShowCanvasMenu(const QPoint& global) {
    QMenu menu(this);
    for (QMenu* sub : m_commandMenus)
        if (sub->isEnabled() || sub == m_pPlayMenu) menu.addMenu(sub);
    menu.exec(global);
}

QDockWidget* CMainFrame::CreatePane(int id, const QString& title, QWidget* dialog, QSize created,
                                    QSize smallest, QSize largest) {
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(QString("pane%1").arg(id));
    dock->setWidget(dialog);
    dock->setMinimumSize(smallest);
    dock->setMaximumSize(largest);
    dialog->resize(created);
    const Qt::DockWidgetArea area =
        m_Env.bPreviewLeft ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea;
    addDockWidget(area, dock);
    resizeDocks({dock}, {created.width()}, Qt::Horizontal);
    m_panes[id] = dock;
    return dock;
}

void CMainFrame::CreatePanes() {
    const QSize wideMin(140, 200), wideMax(340, 5000), wideNew(260, 120);
    const QSize playMin(170, 200), playMax(170, 2000), playNew(170, 150);
    QDockWidget* slide =
        CreatePane(550, tr("Slide"), new CPreviewDlg(this), wideNew, wideMin, wideMax);
    QDockWidget* outline = CreatePane(551, tr("Outline"), new CTextDlg, wideNew, wideMin, wideMax);
    tabifyDockWidget(slide, outline);
    slide->raise();
    QDockWidget* play = CreatePane(553, tr("Play"), new CPlayDlg, playNew, playMin, playMax);
    QDockWidget* text = CreatePane(554, tr("Text"), new CPlayTextDlg, playNew, playMin, playMax);
    tabifyDockWidget(play, text);
    play->hide();
    text->hide();
}

void CMainFrame::SaveInterfaceState() {
    QSettings settings;
    QByteArray bars;
    QDataStream out(&bars, QIODevice::WriteOnly);
    const auto toolbars = findChildren<QToolBar*>();
    out << static_cast<qint32>(toolbars.size());
    for (const QToolBar* bar : toolbars)
        out << bar->objectName() << bar->isVisible() << static_cast<qint32>(toolBarArea(bar));
    // The ribbon's own state rides with the command bars of the language.
    out << (m_pRibbon ? m_pRibbon->SaveState() : QByteArray());
    settings.setValue(LayoutName("CmdBarsMTFX", m_nLanguage), bars);
    settings.setValue(LayoutName("LayoutMTFX", m_nLanguage), saveState(LAYOUT_VERSION));
}

void CMainFrame::RestoreInterfaceState() {
    QSettings settings;
    const QByteArray layout = settings.value(LayoutName("LayoutMTFX", m_nLanguage)).toByteArray();
    if (!layout.isEmpty()) restoreState(layout, LAYOUT_VERSION);
    const QByteArray bars = settings.value(LayoutName("CmdBarsMTFX", m_nLanguage)).toByteArray();
    QDataStream in(bars);
    qint32 count = 0;
    in >> count;
    for (qint32 i = 0; i < count && in.status() == QDataStream::Ok; ++i) {
        QString name;
        bool visible = true;
        qint32 area = 0;
        in >> name >> visible >> area;
        QToolBar* bar = findChild<QToolBar*>(name);
        if (!bar || in.status() != QDataStream::Ok) continue;
        const auto where = static_cast<Qt::ToolBarArea>(area);
        if (where != Qt::NoToolBarArea && where != toolBarArea(bar)) addToolBar(where, bar);
        bar->setVisible(visible);
    }
    QByteArray ribbon;
    in >> ribbon;
    if (in.status() == QDataStream::Ok && m_pRibbon) m_pRibbon->RestoreState(ribbon);
}

// A style sheet in the program's data, when there is one, restyles the editor.
void CMainFrame::LoadSkin() {
    QFile skin(QString::fromStdString((m_folders.dataFolder / "qrd.uistyles").string()));
    if (skin.open(QIODevice::ReadOnly)) setStyleSheet(QString::fromUtf8(skin.readAll()));
}

void CMainFrame::CreateArrangeMenu() {
    struct UstCommand {
        uint32_t nId;
        const char* text;  // status tip, then the menu's words
    };
    static const UstCommand COMMANDS[] = {
        {1500, QT_TR_NOOP("Bring objects to front\nBring to Front")},
        {1501, QT_TR_NOOP("Send objects to back\nSend to Back")},
        {1502, QT_TR_NOOP("Bring objects forward\nBring Forward")},
        {1503, QT_TR_NOOP("Send objects backward\nSend Backward")},
        {0, nullptr},
        {501, QT_TR_NOOP("Align objects to left\nAlign objects to left")},
        {500, QT_TR_NOOP("Align objects to right\nAlign objects to right")},
        {502, QT_TR_NOOP("Align objects to top\nAlign objects to top")},
        {503, QT_TR_NOOP("Align objects to bottom\nAlign objects to bottom")},
        {0, nullptr},
        {504, QT_TR_NOOP("Align objects to center\nAlign to center")},
        {505, QT_TR_NOOP("Align objects to horizontal center\nAlign objects to horizontal center")},
        {506, QT_TR_NOOP("Align objects to vertical center\nAlign objects to vertical center")},
        {0, nullptr},
        {507, QT_TR_NOOP("Align to left\nAlign to left")},
        {508, QT_TR_NOOP("Align to right\nAlign to right")},
        {509, QT_TR_NOOP("Align to top\nAlign to top")},
        {510, QT_TR_NOOP("Align to bottom\nAlign to bottom")},
    };
    QMenu* menu = CommandMenu(tr("&Arrange"));
    for (const UstCommand& c : COMMANDS) {
        if (!c.text) {
            menu->addSeparator();
            continue;
        }
        const QStringList parts = tr(c.text).split('\n');
        QAction* action = menu->addAction(parts.value(1), this, [this, id = c.nId] {
            if (CZevrantView* view = ActiveView()) view->PageCommand(id);
        });
        action->setStatusTip(parts.value(0));
        action->setObjectName(QString("cmd%1").arg(c.nId));
    }
    menu->addSeparator();
    QAction* lock = menu->addAction(tr("Lock or Unlock"), this, &CMainFrame::ToggleLockSelection);
    lock->setStatusTip(tr("Lock the selected objects, or unlock them if one is locked"));
    lock->setObjectName("cmd40019");
}

// All of the selection locks when none of it is locked; else all unlocks.
void CMainFrame::ToggleLockSelection() {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || m_nPlayState != 0 || !page->AnySelected()) return;
    const auto& selected = page->Selection();
    const bool none = std::none_of(selected.begin(), selected.end(),
                                   [](const CQRDObject* o) { return o->m_bLocked != 0; });
    for (CQRDObject* o : selected)
        o->m_bLocked = none ? 1 : 0;
    view->Document()->Project().SetProjectModified();
}

void CMainFrame::CreatePageMenu() {
    QMenu* menu = CommandMenu(tr("&Page"));
    const QString names[] = {tr("Cut"), tr("Roll"), tr("Crawl")};
    for (uint32_t type = 0; type < 3; ++type) {
        QAction* action =
            menu->addAction(names[type], this, [this, type] { ChangePageType(type); });
        action->setObjectName(QString("pagetype%1").arg(type));
    }
    menu->addSeparator();
    AddPageActions(menu);
}

// Pages of the project, until the thumbnails pane exists.
void CMainFrame::AddPageActions(QMenu* menu) {
    auto add = [&](const QString& text, const char* name, auto slot) {
        menu->addAction(text, this, slot)->setObjectName(name);
    };
    add(tr("New Page"), "cmd604", [this] {
        if (CZevrantView* view = ActiveView()) {
            const int after = view->Document()->Project().m_nCurPage;
            view->ProjectCommand(CMD_NEW_PAGE, after >= 0 ? &after : nullptr);
        }
    });
    add(tr("Delete Page"), "cmd605", [this] {
        if (CZevrantView* view = ActiveView()) view->ProjectCommand(CMD_DELETE_PAGES);
    });
    add(tr("Previous Page"), "pageprevious", [this] {
        if (CZevrantView* view = ActiveView()) {
            const int index = view->Document()->Project().m_nCurPage - 1;
            view->ProjectCommand(CMD_GO_TO_PAGE, &index);
        }
    });
    add(tr("Next Page"), "pagenext", [this] {
        if (CZevrantView* view = ActiveView()) {
            const int index = view->Document()->Project().m_nCurPage + 1;
            view->ProjectCommand(CMD_GO_TO_PAGE, &index);
        }
    });
}

// Until the ribbon exists: the canvas modes, splitting and the font of the
// selected texts.
void CMainFrame::CreateTextMenu() {
    QMenu* menu = CommandMenu(tr("&Text"));
    auto add = [&](const QString& text, const char* name, auto slot) {
        const QStringList parts = text.split('\n');
        QAction* action = menu->addAction(parts.value(1), this, slot);
        action->setStatusTip(parts.value(0));
        action->setObjectName(name);
    };
    add(tr("Edit Text.\nText"), "cmd207", [this] {
        if (m_nCanvasMode != MODE_TEXT) m_nCanvasMode = MODE_TEXT;
    });
    add(tr("Select an Object.\nSelect"), "cmd208", [this] {
        if (CZevrantView* view = ActiveView()) view->EndTextEdit();
        m_nCanvasMode = MODE_SELECT;
    });
    menu->addSeparator();
    add(tr("Choose the font of the text.\nFont..."), "cmd202", [this] { ChooseFontFace(); });
    add(tr("Choose the size of the text.\nFont Size..."), "cmd203", [this] { ChooseFontSize(); });
    menu->addSeparator();
    add(tr("Split text into lines\nSplit into Lines"), "cmd40022", [this] {
        if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_SPLIT_LINES);
    });
    add(tr("Split text into characters\nSplit into Characters"), "cmd40023", [this] {
        if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_SPLIT_CHARS);
    });
}

void CMainFrame::ChooseFontFace() {
    const QStringList faces = InstalledFontFamilies();
    const QString current = FixedToQString(&m_WorkAttr.font.szFace);
    bool ok = false;
    const QString face =
        QInputDialog::getItem(this, tr("Font"), tr("Font:"), faces,
                              std::max(0, static_cast<int>(faces.indexOf(current))), false, &ok);
    if (!ok || face.isEmpty()) return;
    QStringToFixed(face, &m_WorkAttr.font.szFace);
    if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_FONT_FACE, &m_WorkAttr.font);
}

void CMainFrame::ChooseFontSize() {
    bool ok = false;
    const int size = QInputDialog::getInt(this, tr("Font Size"), tr("Size (points):"),
                                          m_WorkAttr.font.nSize, 1, MAX_TEXT_SIZE, 1, &ok);
    if (!ok) return;
    m_WorkAttr.font.nSize = size;
    const int32_t value = size;
    if (CZevrantView* view = ActiveView()) view->PageCommand(CMD_FONT_SIZE, &value);
}

void CMainFrame::ChangePageType(uint32_t type) {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page || page->m_nPageType == type || m_nPlayState == 2) return;
    if (page->IsScrollPage() && !page->Objects().empty()) {
        const auto answer = QMessageBox::question(
            this, windowTitle(),
            tr("Objects within the page will be lost. Do you wish to proceed?"),
            QMessageBox::Yes | QMessageBox::No);
        if (answer != QMessageBox::Yes) return;
    }
    view->PageCommand(CMD_PAGE_TYPE, &type);
}

CZevrantView* CMainFrame::ActiveView() const {
    if (auto* child = qobject_cast<CChildFrame*>(m_pMdi->activeSubWindow())) return child->View();
    const auto views = Views();
    return views.empty() ? nullptr : views.front();
}

CZevrantView* CMainFrame::AddProjectWindow(CZevrantDoc* doc) {
    doc->Project().SetFileLinks(&m_fileLinks);
    doc->UseSessionFolder(QString::fromStdString(m_folders.settingsFolder.string()));
    doc->SetPlayState([this] { return m_nPlayState; });
    auto* view = new CZevrantView(this, doc);
    doc->SetPageStatusChanged([view] { view->ShowPageStatus(); });
    doc->SetPagesChanged([this] { RefreshPagePanes(); });
    auto* child = new CChildFrame(view, doc->Title());
    m_pMdi->addSubWindow(child);
    child->showMaximized();
    return view;
}

std::vector<CZevrantView*> CMainFrame::Views() const {
    std::vector<CZevrantView*> views;
    for (QMdiSubWindow* w : m_pMdi->subWindowList())
        if (auto* child = qobject_cast<CChildFrame*>(w)) views.push_back(child->View());
    return views;
}

void CMainFrame::SetStatusPane(int index, const QString& text) {
    if (QLabel* pane = StatusPane(index)) pane->setText(text);
}

QLabel* CMainFrame::StatusPane(int index) const {
    if (index < 0 || index >= static_cast<int>(m_panesStatus.size())) return nullptr;
    return m_panesStatus[static_cast<size_t>(index)];
}

QDockWidget* CMainFrame::Pane(int id) const {
    auto it = m_panes.find(id);
    return it == m_panes.end() ? nullptr : it->second;
}

const QImage* CMainFrame::BackdropImage() {
    const QString path = FixedToQString(&m_Env.szBackImage);
    if (m_Env.nBackKind != BACK_IMAGE || path.isEmpty()) return nullptr;
    if (path != m_strBackImagePath) {
        m_strBackImagePath = path;
        const UstPixelImage image = LoadImageFile(path);
        m_backImage = image ? QImage(reinterpret_cast<const uchar*>(image.bits.get()), image.width,
                                     image.height, image.width * 4, QImage::Format_ARGB32)
                                  .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                            : QImage();
    }
    return m_backImage.isNull() ? nullptr : &m_backImage;
}

void CMainFrame::DispatchKey(const UstKeyInfo& key) {
    if (m_nPlayState == 0) {
        if (CZevrantView* view = ActiveView()) view->OnHotKey(key);
        return;
    }
    if (m_pAutoDlg && !m_pAutoDlg->IsBusy() && m_pBoard && ActivePageFitsBoard())
        m_pAutoDlg->Auto()->OnKey(key.nVk);
}

void CMainFrame::RestartAutoSaveTimer() {
    m_timer.stop();
    m_timer.start(AutoSavePeriodMs(m_Env));
}

void CMainFrame::OnTimer() {
    if (!ShouldAutoSave(m_Env, m_nPlayState)) return;
    for (CZevrantView* view : Views())
        QMetaObject::invokeMethod(view, "OnAutoSave", Qt::QueuedConnection);
}

void CMainFrame::ShowOptions() {
    CDlgOptions dlg(m_Env, m_nLanguage, this);
    CTabControl* control = dlg.AddControlTab(LoadControlSetting());
    if (dlg.exec() != QDialog::Accepted) return;
    ApplyControlSetting(control->Copy());
    const auto exists = [](const QString& p) { return QFileInfo(p).isFile(); };
    const UstOptionsOutcome out = ApplyOptions(m_Env, dlg.ProgramCopy(), dlg.EditCopy(), exists);
    if (out.bEditRejected)
        QMessageBox::warning(this, windowTitle(),
                             tr("The image path is empty or invalid, please reset the path."));
    if (out.bEditTaken && m_nPlayState != 1) RefreshViews();
    if (out.bRestartTimer) RestartAutoSaveTimer();
    if (out.bAskRestart) {
        const auto answer = QMessageBox::question(
            this, windowTitle(),
            tr("To apply language setting, the program must be restarted. Terminate program?"),
            QMessageBox::Yes | QMessageBox::No);
        if (answer == QMessageBox::Yes)
            QMetaObject::invokeMethod(this, "close", Qt::QueuedConnection);
    }
}

void CMainFrame::ExportPageToTga() {
    QString name = QFileDialog::getSaveFileName(this, tr("Export page to Image (TGA 32)"), {},
                                                tr("TGA Files(*.TGA)"));
    if (name.isEmpty()) return;
    if (!name.endsWith(".tga", Qt::CaseInsensitive)) name += ".tga";
    if (!ExportPageTo(name))
        QMessageBox::warning(this, windowTitle(),
                             tr("The page could not be written to %1.").arg(name));
}

bool CMainFrame::ExportPageTo(const QString& file) {
    CZevrantView* view = ActiveView();
    CPageManager* page = view ? view->Page() : nullptr;
    if (!page) return false;
    const UstSize size =
        CZevrantApp::Get() ? CZevrantApp::Get()->GetFrameSize() : UstSize{1920, 1080};
    std::vector<uint32_t> block(static_cast<size_t>(size.cx) * size.cy);
    page->DrawToImage(block.data(), size.cx, size.cy);
    return WriteTga32(block.data(), size.cx, size.cy, QFile::encodeName(file).toStdString()) == 1;
}

void CMainFrame::RefreshViews() {
    for (CZevrantView* view : Views())
        view->RefreshCanvas();
}

void CMainFrame::OnPlayNotify(int what, int arg) {
    // 2: the engine's current frame goes to the preview; 7: the preview is
    // cleared when asked. The engine and its panes arrive with play control.
    if (what == 7 && arg != 0) std::fill(m_PreviewImage.begin(), m_PreviewImage.end(), 0u);
}

void CMainFrame::OnAttrChanged() {
    // The working fill-colour buttons repaint here once the ribbon has them.
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    if (m_nPlayState == 2) {
        QMessageBox::information(this, windowTitle(),
                                 tr("Please stop automatic play out to exit play mode."));
        event->ignore();
        return;
    }
    if (m_nPlayState == 1) LeavePlayMode();
    m_nPlayState = 0;
    SaveInterfaceState();
    // Each project closes as its window would, asking what it must ask.
    if (!CloseAllProjects()) {
        event->ignore();
        return;
    }
    m_timer.stop();
    event->accept();
}

}  // namespace orv
