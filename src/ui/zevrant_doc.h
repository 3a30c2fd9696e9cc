#pragma once

#include <QObject>
#include <QString>

namespace orv {

// One open project. Holding pages, files and recovery comes with projects on
// disk; for now it knows its paths and answers the auto-save request.
class CZevrantDoc : public QObject {
    Q_OBJECT
public:
    explicit CZevrantDoc(QObject* parent = nullptr);

    QString Title() const { return m_strTitle; }

    // Writes the recovery file when the project has changed. Returns the
    // file's name when something was saved, else an empty string.
    QString AutoSave();

    QString m_strWorkspace;
    QString m_strProjectPath;
    QString m_strBackupPath;
    bool m_bModified = false;

private:
    QString m_strTitle;
};

}  // namespace orv
