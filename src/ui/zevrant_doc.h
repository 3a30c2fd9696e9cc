#pragma once

#include <QObject>
#include <QString>
#include <QTemporaryDir>

#include <memory>

#include "project/project_manager.h"

namespace orv {

// One open project: in memory until it is opened from or saved to a project
// file. The working file and recovery come with projects on disk.
class CZevrantDoc : public QObject {
    Q_OBJECT
public:
    explicit CZevrantDoc(QObject* parent = nullptr);
    ~CZevrantDoc() override;

    QString Title() const { return m_strTitle; }
    CProjectManager& Project() { return *m_pProject; }

    // Writes the recovery file when the project has changed. Returns the
    // file's name when something was saved, else an empty string.
    QString AutoSave();

    // Until the project has a folder of its own, its media copies go into a
    // folder of this session under the given one, removed with the project.
    void UseSessionFolder(const QString& parent);

    // Reads the project file; the project then lives in its folder. False,
    // with the reason, and the document as it was, when the file does not
    // load.
    bool OpenProject(const QString& path, QString* error);
    // Saves into the project's file; false without one or on failure.
    bool SaveProject(QString* error);
    // Gives the project a folder of its own around a new project file, takes
    // the media copied so far along into its Object folder, and saves.
    bool SaveProjectAs(const QString& path, QString* error);

    QString m_strWorkspace;
    QString m_strProjectPath;
    QString m_strBackupPath;

private:
    QString m_strTitle;
    std::unique_ptr<CProjectManager> m_pProject;
    std::unique_ptr<QTemporaryDir> m_pSessionFolder;
};

}  // namespace orv
