#include "ui/zevrant_doc.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace orv {

CZevrantDoc::CZevrantDoc(QObject* parent)
    : QObject(parent),
      m_strTitle(tr("New Project")),
      m_pProject(std::make_unique<CProjectManager>(1920, 1080)) {}

CZevrantDoc::~CZevrantDoc() = default;

void CZevrantDoc::UseSessionFolder(const QString& parent) {
    if (!m_pProject->ObjectFolder().isEmpty()) return;
    QDir().mkpath(parent);
    m_pSessionFolder = std::make_unique<QTemporaryDir>(QDir(parent).filePath("session-XXXXXX"));
    if (!m_pSessionFolder->isValid()) return;
    const QString objects = QDir(m_pSessionFolder->path()).filePath("Object");
    QDir().mkpath(objects);
    m_pProject->SetObjectFolder(objects);
}

namespace {

QString FolderName(const QString& projectFile) {
    return QFileInfo(projectFile).absoluteDir().dirName();
}

bool CopyFolderFiles(const QString& from, const QString& to) {
    const QDir source(from);
    bool ok = true;
    for (const QString& name : source.entryList(QDir::Files))
        if (!QFileInfo::exists(QDir(to).filePath(name)))
            ok &= QFile::copy(source.filePath(name), QDir(to).filePath(name));
    return ok;
}

}  // namespace

bool CZevrantDoc::OpenProject(const QString& path, QString* error) {
    if (!m_pProject->LoadProject(path, error)) return false;
    m_strProjectPath = QFileInfo(path).absoluteFilePath();
    m_strTitle = FolderName(path);
    m_pSessionFolder.reset();
    return true;
}

bool CZevrantDoc::SaveProject(QString* error) {
    if (m_strProjectPath.isEmpty()) {
        if (error) *error = tr("The project has no file yet.");
        return false;
    }
    return m_pProject->SaveProject(m_strProjectPath, error) == 1;
}

bool CZevrantDoc::SaveProjectAs(const QString& path, QString* error) {
    const QDir folder = QFileInfo(path).absoluteDir();
    if (!folder.mkpath("Data") || !folder.mkpath("Object")) {
        if (error) *error = tr("The folders Data and Object cannot be made.");
        return false;
    }
    const QString objects = folder.filePath("Object");
    if (!m_pProject->ObjectFolder().isEmpty() &&
        !CopyFolderFiles(m_pProject->ObjectFolder(), objects)) {
        if (error) *error = tr("Failed copying files.");
        return false;
    }
    QFile::remove(path);  // the dialog has asked before replacing it
    if (!CreateProjectFile(path, m_pProject->m_nWidth, m_pProject->m_nHeight, error)) return false;
    m_pProject->SetFolder(folder.absolutePath() + '/');
    // Every page gets its thumbnail file in the new folder.
    for (const auto& page : m_pProject->Pages())
        page->SetModified(true);
    m_strProjectPath = QFileInfo(path).absoluteFilePath();
    m_strTitle = FolderName(path);
    m_pSessionFolder.reset();
    return SaveProject(error);
}

QString CZevrantDoc::AutoSave() {
    // Without a project file there is no recovery file to write to.
    if (m_strProjectPath.isEmpty() || !m_pProject->m_bModified) return {};
    return {};
}

}  // namespace orv
