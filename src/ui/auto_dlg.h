#pragma once
// The list pane of play mode. Its main tab holds the operator's list (the
// range, the passes, manual or automatic), the keys of play mode and the
// PROGRAM and PREVIEW monitors; the logo tab puts a page aside as a logo.

#include <QWidget>

#include <functional>
#include <vector>

#include "playout/logo_animator.h"
#include "playout/play_list.h"

class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QSpinBox;
class QTabWidget;

namespace orv {

class CDecklinkPipeline;
class CPageManager;
class CPlayEngine;
class CProgramMonitor;

// What the pane needs of the window around it.
struct UstPlayContext {
    std::function<CPlayEngine*()> engine;
    std::function<int()> playState;  // 0 edit, 1 play, 2 automatic play out
};

class CPropAuto : public QWidget {
    Q_OBJECT
public:
    CPropAuto(UstPlayContext context, CDecklinkPipeline* pipeline, QWidget* parent = nullptr);

    void SetPages(std::vector<CPageManager*> pages);
    UstPlayList& List() { return m_list; }
    // A key of play mode, as the virtual-key number.
    void OnKey(int key);
    void OnPlayState(int state, int param);
    // The page after `index` that the automatic loop would take, for PREVIEW.
    int NextPreview(int index) const;
    int Cursor() const { return m_list.m_nCurrent.load(); }
    void SetCursor(int index);

    bool m_bKeysOff = false;

Q_SIGNALS:
    void CursorMoved(int index);

private:
    void BuildControls();
    QWidget* BuildMonitors();
    void Run();
    void MoveCursor(int key);
    void ChangeScrollSpeed(int delta);
    void TakeMoveTo();
    void OnStartChanged(int start);
    void OnEndChanged(int end);
    void OnModeChanged(int mode);
    void ShowPreview(int index);
    void ShowStage(int state, int param);
    CPlayEngine* Engine() const { return m_context.engine ? m_context.engine() : nullptr; }
    int PlayState() const { return m_context.playState ? m_context.playState() : 0; }

    UstPlayContext m_context;
    CDecklinkPipeline* m_pPipeline;
    UstPlayList m_list;
    QSpinBox *m_pStart = nullptr, *m_pEnd = nullptr, *m_pRepeat = nullptr;
    QCheckBox* m_pIgnore = nullptr;
    QButtonGroup* m_pMode = nullptr;
    QLineEdit* m_pMoveTo = nullptr;
    QLabel *m_pPreview = nullptr, *m_pOnAir = nullptr, *m_pStage = nullptr;
    QProgressBar* m_pStageBar = nullptr;
    CProgramMonitor* m_pProgram = nullptr;
    bool m_bRangeSet = false;  // range and repeat stay as the operator left them
};

class CPropAutoA : public QWidget {  // "Logo"
    Q_OBJECT
public:
    CPropAutoA(UstPlayContext context, QWidget* parent = nullptr);

    void SetPages(std::vector<CPageManager*> pages);
    void RunLogo();
    void StopLogo();
    void EraseLogo();
    CPageManager* Logo() const { return m_pLogo; }

private:
    UstPlayContext m_context;
    std::vector<CPageManager*> m_pages;
    QListWidget* m_pList = nullptr;
    QLabel *m_pOnAir = nullptr, *m_pPreview = nullptr;
    CPageManager* m_pLogo = nullptr;
    std::vector<uint32_t> m_frame;  // the logo as it would go to a logo layer
    // Plays a logo page's animations in the PREVIEW monitor. Declared last,
    // it stops before anything it posts to goes.
    CLogoAnimator m_animator;
};

class CAutoDlg : public QWidget {
    Q_OBJECT
public:
    CAutoDlg(UstPlayContext context, CDecklinkPipeline* pipeline, QWidget* parent = nullptr);

    void SetPages(std::vector<CPageManager*> pages);
    CPropAuto* Auto() const { return m_pAuto; }
    CPropAutoA* LogoTab() const { return m_pLogo; }
    // The keys go nowhere while a modal question of the pane is open.
    bool IsBusy() const { return m_pAuto->m_bKeysOff; }

private:
    QTabWidget* m_pTabs;
    CPropAuto* m_pAuto;
    CPropAutoA* m_pLogo;
};

}  // namespace orv
