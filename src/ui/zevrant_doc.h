#pragma once

#include <QObject>
#include <QString>
#include <QTemporaryDir>

#include <functional>
#include <memory>

#include "project/project_manager.h"
#include "project/project_store.h"

namespace orv {

// One open project and its place on disk. While it is open, every save
// goes to the working file beside the project file; a clean close makes the
// working file the project file. A document that has no folder yet (made in
// memory) keeps its media in a session folder.
class CZevrantDoc : public QObject, public CProjectHost {
    Q_OBJECT
public:
    explicit CZevrantDoc(QObject* parent = nullptr);
    ~CZevrantDoc() override;

    QString Title() const { return m_strTitle; }
    CProjectManager& Project() { return *m_pProject; }
    bool HasFile() const { return !m_strProjectPath.isEmpty(); }

    // The window the document answers to for play state and panels.
    using PlayStateFn = std::function<int()>;
    void SetPlayState(PlayStateFn fn) { m_fnPlayState = std::move(fn); }
    using ChangedFn = std::function<void()>;
    void SetPagesChanged(ChangedFn fn) { m_fnPagesChanged = std::move(fn); }
    void SetPageStatusChanged(ChangedFn fn) { m_fnStatusChanged = std::move(fn); }

    // Opens the project given by its file or folder, recovering a working
    // file that an earlier run left behind. False, with the reason, and the
    // document as it was, when it does not open; a notice says what the
    // user should know although it opened.
    bool OpenDocument(const QString& fileOrFolder, QString* error, QString* notice = nullptr);
    // Saves into the working file when the project has changed; the saved
    // file's name, or empty when nothing was saved (and then error says why,
    // if it failed).
    QString Save(QString* error = nullptr);
    // Writes the working file when the project has changed and the page is
    // on the canvas; the file's name when something was saved.
    QString AutoSave();

    enum class EClose { CLOSED, REFUSED_ON_AIR };
    // Closes the project on disk: on air it is refused; with changes, they
    // are saved first when auto-save is on, else askSave decides (true:
    // keep them). Keeping leaves the working file as the project file;
    // dropping deletes it, and the project file stays as it was.
    EClose CloseDocument(bool onAir, bool autoSave, const std::function<bool()>& askSave);

    // Save As: the project file takes the working file's state, the whole
    // folder is copied to the new one, and work goes on there. False, with
    // "Failed copying files." as the reason, when a step fails.
    bool SaveAs(const QString& newFolder, QString* error);
    // A document made in memory gets a folder of its own.
    bool SaveIntoNewFolder(const QString& newFolder, QString* error);

    // Until the project has a folder of its own, its media copies go into a
    // folder of this session under the given one, removed with the project.
    void UseSessionFolder(const QString& parent);

    // CProjectHost
    int PlayState() const override { return m_fnPlayState ? m_fnPlayState() : 0; }
    // The play panes are open for as long as play mode lasts.
    bool PlayPanelOpen() const override { return PlayState() != 0; }
    void PagesChanged() override {
        if (m_fnPagesChanged) m_fnPagesChanged();
    }
    void PageStatusChanged() override {
        if (m_fnStatusChanged) m_fnStatusChanged();
    }

    QString m_strWorkspace;
    QString m_strProjectPath;
    QString m_strBackupPath;
    QString m_strFolder;
    QString m_strDataFolder;
    QString m_strObjectFolder;
    int32_t m_bFromBackup = 0;

private:
    void TakePaths(const UstProjectPaths& paths);
    UstProjectPaths Paths() const { return ProjectPathsFor(m_strProjectPath); }

    QString m_strTitle;
    std::unique_ptr<CProjectManager> m_pProject;
    std::unique_ptr<QTemporaryDir> m_pSessionFolder;
    PlayStateFn m_fnPlayState;
    ChangedFn m_fnPagesChanged, m_fnStatusChanged;
};

}  // namespace orv
