#pragma once

#include <QImage>
#include <QMainWindow>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "playout/play_engine.h"
#include "project/folders.h"
#include "project/object_folder.h"
#include "project/settings_records.h"
#include "render/style_records.h"
#include "shell/key_routing.h"

class QDockWidget;
class QLabel;
class QMdiArea;
class QMenu;

namespace orv {

class CAutoDlg;
class CRibbonBar;
struct UstCommand;
class CDlgPageOverview;
class CPreviewDlg;
class CDataPane;
class CEditorControl;
struct UstControlOptions;
struct UstControlSetting;
class CGBoard;
class CPageManager;
class CPlayCellList;
class CProgramMonitor;
class CSplashScreenEx;
class CStyleLibraries;
class CStylesPane;
class CZevrantDoc;
class CZevrantView;

// The main window: panes, status bar, command bars, settings in force, play
// state, the play engine, and the auto-save timer.
class CMainFrame : public QMainWindow, public IPlayHost {
    Q_OBJECT
public:
    // board: the output board, or null; not owned.
    CMainFrame(const UstFolders& folders, uint16_t language, CGBoard* board = nullptr);
    ~CMainFrame() override;

    // The window work of creation, in its order. False ends start-up.
    bool OnCreate();

    // Opens a project window for doc, maximised inside the frame.
    CZevrantView* AddProjectWindow(CZevrantDoc* doc);
    std::vector<CZevrantView*> Views() const;
    CZevrantView* ActiveView() const;

    void SetStatusPane(int index, const QString& text);
    QLabel* StatusPane(int index) const;
    QDockWidget* Pane(int id) const;

    // The backdrop image of the edit options, loaded once and kept.
    const QImage* BackdropImage();

    void DispatchKey(const UstKeyInfo& key);
    void RestartAutoSaveTimer();
    int AutoSaveInterval() const { return m_timer.isActive() ? m_timer.interval() : 0; }
    void OnTimer();
    void ShowOptions();
    void ExportPageToTga();
    // Writes the active page to a TGA file; false with nothing written on failure.
    bool ExportPageTo(const QString& file);

    // The output menu's commands: Hardware Configuration (757), Reset the
    // graphic board (758), the test card, the program monitor.
    void OnHardwareConfiguration();
    void OnResetBoard();
    void ShowProgramMonitor(bool show);
    void SendTestCard(bool on);
    CProgramMonitor* ProgramMonitor() const { return m_pMonitor; }
    // An output that failed and gave way to the clock: said once in the
    // status bar and in the log.
    Q_INVOKABLE void OnOutputFailure(const QString& output, const QString& reason);

    Q_INVOKABLE void OnPlayNotify(int what, int arg);

    // Play mode. The engine is made once the window stands, and again when
    // the output's format changes.
    void CreatePlayEngine();
    CPlayEngine* PlayEngine() const { return m_pPlayEngine.get(); }
    CGBoard* Board() const { return m_pBoard; }
    CAutoDlg* AutoDlg() const { return m_pAutoDlg; }
    // "Play Mode" (777): in, or out unless automatic play runs.
    void TogglePlayMode();
    bool EnterPlayMode();
    bool LeavePlayMode();
    // "Erase Output" (781) and F12.
    void EraseOutput();
    // "Play Window" (780): the two list panes of play mode.
    void TogglePlayWindow();
    void ToggleLockSelection();
    // The editor's commands beyond the ribbon, at a right click on the canvas.
    void ShowCanvasMenu(const QPoint& global);
    // A play key of edit mode, as the canvas passes it on.
    void PlayKey(int vk);
    // The board's format and the active page's agree: a 486 or 576-line mode
    // for an SD page, 720 or 1080 lines for an HD one.
    bool ActivePageFitsBoard() const;
    // The engine's states, on this thread.
    void OnPlayState(int state, int param);
    void PostPlayState(int state, int param) override;
    void SetPlayMode(int mode) override;
    Q_INVOKABLE void OnAttrChanged();

    static QString LayoutName(const char* base, uint16_t language);
    // The shape kinds as the menu names them.
    static QStringList ShapeKindTitles();
    // The file dialog's filter of the picture kinds that can be read.
    static QString PictureFileFilter();
    static QString AnimationFileFilter();
    // Inserts an animation from its file, or from pictures of a numbered
    // sequence converted first; says why when it cannot.
    bool InsertAnimationFiles(const QStringList& files);
    // "Animation Properties" for the one selected animation.
    void ShowAnimationProperties();
    // "Insert Timer/Counter" and 40024 on the selected timer, through the dialog.
    void InsertTimer();
    void ShowTimerProperties();
    // The Play menu's hold on the running timers.
    void CreateTimerControls(QMenu* menu);
    void SetRunningTimers();

    // The project commands of the File menu.
    void NewProject();
    void OpenProject();
    void OpenProjectFile();
    // A project, given by its file or folder, opened in a window of its own
    // (or its window brought forward when it is open already); null, after a
    // message that names the file and the reason, when it does not open.
    CZevrantView* OpenProjectPath(const QString& path, bool announceRecovery = true);
    // Into the working file; a project without a folder goes through Save As.
    void SaveActiveProject();
    void SaveProjectAs();
    void CloseActiveProject();
    // Closes the project of the view on disk, asking what the settings ask;
    // false when it must stay open.
    bool CloseProjectOf(CZevrantView* view);
    bool CloseAllProjects();
    QStringList OpenProjectFiles() const;
    CZevrantView* FindProjectWindow(const QString& projectFile) const;
    void ShowRecoveryMessage();
    // The application keeps the last project and the workspace for the next
    // start; Save As writes them at once.
    using ProjectFn = std::function<void(const QString& workspace, const QString& project)>;
    void SetProjectCallbacks(ProjectFn remember, ProjectFn writeNow) {
        m_fnRememberProject = std::move(remember);
        m_fnWriteProjectIni = std::move(writeNow);
    }
    void SetWorkspace(const QString& workspace) { m_strWorkspace = workspace; }
    QString Workspace() const { return m_strWorkspace; }

    // The Edit menu's actions enabled as the active project allows while
    // the menu shows; once it is closed all are, so that their keys reach
    // the commands, which keep the same rules.
    void UpdateEditActions(bool menuShown);

    // The style galleries' commands: an apply, add or delete number of one
    // of the five libraries with the gallery's item (-1 for the current
    // item). Nonzero when something was done.
    int StyleCommand(uint32_t id, int index = -1);
    CStyleLibraries& Styles() { return *m_pStyles; }
    CStylesPane* StylesPane() const { return m_pStylesPane; }

    // The ribbon, made from the command table. Every control ends in one of
    // these: a button's command, a field's typed text, a step, a combo's
    // item, a slider's value or a gallery's tile.
    CRibbonBar* Ribbon() const { return m_pRibbon; }
    bool RunCommand(uint32_t id, int index = -1);
    void OnRibbonField(uint32_t id, const QString& text);
    void OnRibbonStep(uint32_t id);
    void OnRibbonCombo(uint32_t id, int index);
    void OnRibbonSlider(uint32_t id, int value);
    // The effect gallery's tile: item i stands for effect i + 2. Nonzero
    // when a page's effect changed.
    int OnEffectGallery(int index, Qt::KeyboardModifiers modifiers);
    // Whether a number of the table has somewhere to go, and whether its
    // control is usable now.
    bool HasCommandHandler(uint32_t id) const;
    bool IsCommandEnabled(uint32_t id) const;
    // The idle update: enabled states, and the values of the fields the
    // operator is not typing in.
    void UpdateRibbon();
    // The attribute record the ribbon shows and edits: the selected object's
    // (in the working record), else the frame's default.
    UstDefaultAttr& GetAttrForSelection();
    // An attribute command: in master attribute mode the master ids go to
    // the project, everything else to the current page.
    int RouteCommand(const void* arg, uint32_t id);
    // The value a field shows now; false when there is none to show.
    bool FieldValue(uint32_t id, int32_t* value);
    // The font gallery's lists, and a chosen face moved to the front of the
    // recent list.
    QStringList RecentFonts() const;
    void RememberFont(const QString& face);
    void FillFontGallery();
    void FillSymbolGallery();
    // The page thumbnails, in the pane and in the overview while it is open:
    // both follow the active project.
    void RefreshPagePanes();
    CPreviewDlg* PreviewPane() const;
    void ShowPageOverview();
    CDlgPageOverview* PageOverview() const { return m_pOverview; }
    // A command of the canvas or its dialogs by number, as a menu or the
    // ribbon gives it, and whether it is enabled now.
    int CanvasCommand(uint32_t id);
    bool CanvasCommandEnabled(uint32_t id) const;
    // "Find" and "Jump To Page" on the active project.
    void ShowFind();
    void ShowJump();
    uint16_t Language() const { return m_nLanguage; }
    // Live data and remote control.
    CDataPane* DataPane() const { return m_pDataPane; }
    CEditorControl* Control() const { return m_pControl.get(); }
    void SetControlOverride(const UstControlOptions& options);
    void ApplyControlSetting(const UstControlSetting& setting);
    void OnPageDataChanged(CPageManager* page);

    int m_nPlayState = 0;
    bool m_bMasterMode = false;  // 5008
    int m_nPaintSlot = 0;        // the paint the colour controls edit: fill, edge, outline, shadow
    int m_nEffectTile = 0;       // the effect panel's picked tile: 0 none, 1 in, 2 out
    bool m_bPageFocus = false;   // the page thumbnails hold the focus
    // The application's focus changes go on while the window is destroyed,
    // when it is a main window no longer: the watch ends first.
    QMetaObject::Connection m_focusWatch;
    float m_fZoom = 100.0f;
    int m_nCanvasMode = 0;
    int m_nShapeKind = 0;  // what shape mode draws
    UstEnv m_Env;
    UstDefaultAttr m_DefaultAttr;
    UstDefaultAttr m_WorkAttr;
    std::vector<uint32_t> m_PreviewImage;  // 300 x 225

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void CreateStatusBar();
    void CreateCommandBars();
    void CreateRibbon();
    void AddRibbonHandlers();
    void AddAttributeHandlers();
    QAction* RibbonAction(const UstCommand& c);
    void UpdateRibbonValues();
    void StoreField(UstDefaultAttr& rec, uint32_t id, int32_t value);
    void SendField(UstDefaultAttr& rec, uint32_t id, int32_t value);
    int SendEffectValue(uint32_t id, int32_t value);
    void ChooseRibbonColor();
    void ChooseFontFromGallery(const QString& face);
    void FillStyleGalleries();
    void FillEffectGallery();
    void FillPaletteGallery();
    void CreateArrangeMenu();
    void CreateEditMenu();
    void CreateFileMenu();
    void CreateQuickAccessBar();
    QMenu* CommandMenu(const QString& title);
    void AddShortcutsOf(QMenu* menu);
    void SetMenuEnabled(QMenu* menu, bool enabled);
    void CreatePageMenu();
    void CreateTextMenu();
    void CreateShapeMenu();
    // Blink and typing: on or off for the selection, and the page's settings.
    void CreateLiveMenu();
    void SetLiveFlag(uint32_t command, bool on);
    void ChooseBlinkProperties();
    void ChooseTypingProperties();
    void CreateBoardMenu();
    void CreatePlayMenu();
    void CreateViewMenu();
    void SetRibbonEnabled(bool enabled);
    std::vector<CPlayCellList*> PlayLists() const;
    void AttachBoard();
    void DetachBoard();
    void ShowModeName();
    void CreateInsertMenu();
    void AddProjectFileActions(QMenu* file);
    void FillRecentMenu();
    void RememberProject(const CZevrantDoc& doc);
    void AddPageActions(QMenu* menu);
    void InsertBackgroundToAll();
    void ImportTextFile();
    void ImportSlideShow();
    void InsertPictureFile(uint32_t command);
    void InsertAnimationFile();
    QString ConvertSequence(const QStringList& files, const QString& objectFolder);
    void ChoosePictureAlpha();
    void StartShape(int kind);
    void ApplyPaint(int slot, const UstFill& fill);
    void ChooseSolidPaint(int slot);
    void ChooseGradientPaint(int slot);
    void ChooseEffectSizes();
    void ChooseFontFace();
    void ChooseFontSize();
    void ChangePageType(uint32_t type);
    QDockWidget* CreatePane(int id, const QString& title, QWidget* dialog, QSize created,
                            QSize smallest, QSize largest);
    void CreatePanes();
    void SaveInterfaceState();
    void RestoreInterfaceState();
    void LoadSkin();
    void RefreshViews();
    void CreateStylesPane();
    void CreateDataPane();
    // The engine's window side: this window, with the control server
    // listening in.
    IPlayHost* EngineHost();
    void ControlEngineChanged();
    void ControlEngineGone();
    void ControlPagesChanged();
    void ShowControlState();
    int ApplyTextStyle(const UstText& style);
    int ApplyShapeStyle(const UstShape& style);
    int ApplyObjectStyle(uint32_t id, const void* style, const UstAttr& attr,
                         const UstEffect& effect);
    int ApplyColorStyle(const UstFill& fill);
    int ApplyBackgroundStyle(const QString& file);
    int InsertPictureStyle(const QString& file);
    int AddTextStyle();
    int AddShapeStyle();
    int AddColorStyle();
    int AddPictureStyle(int library);
    int DeleteStyle(int library, int index);
    int StyleAdded(int library, bool added, int index);

    UstFolders m_folders;
    uint16_t m_nLanguage;
    CGBoard* m_pBoard;
    CProgramMonitor* m_pMonitor = nullptr;
    QAction* m_pMonitorAction = nullptr;
    CSplashScreenEx* m_pSplash = nullptr;
    QMdiArea* m_pMdi = nullptr;
    QTimer m_timer;
    std::vector<QLabel*> m_panesStatus;
    std::map<int, QDockWidget*> m_panes;
    QImage m_backImage;
    QString m_strBackImagePath;
    CFileLinkTable m_fileLinks;  // what this run copied into which project
    QString m_strWorkspace;
    QMenu* m_pRecentMenu = nullptr;
    ProjectFn m_fnRememberProject, m_fnWriteProjectIni;
    std::unique_ptr<CPlayEngine> m_pPlayEngine;
    CAutoDlg* m_pAutoDlg = nullptr;
    QDockWidget* m_pAutoPane = nullptr;
    QMenu* m_pPlayMenu = nullptr;
    std::vector<QMenu*> m_commandMenus;  // shown by the canvas, not the menu bar
    std::unique_ptr<CStyleLibraries> m_pStyles;
    CStylesPane* m_pStylesPane = nullptr;
    CDataPane* m_pDataPane = nullptr;
    std::unique_ptr<CEditorControl> m_pControl;  // stops before the engine goes
    QAction* m_pPlayModeAction = nullptr;
    CRibbonBar* m_pRibbon = nullptr;
    QTimer m_idle;
    // The frame's own commands of the table, by number; the argument is the
    // item of a combo or a gallery.
    std::map<uint32_t, std::function<void(int)>> m_commands;
    QStringList m_symbolFonts;
    bool m_bGungseo = false;
    CDlgPageOverview* m_pOverview = nullptr;
};

}  // namespace orv
