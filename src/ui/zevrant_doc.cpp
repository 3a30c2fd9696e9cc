#include "ui/zevrant_doc.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "project/page_data_file.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// Every file and folder under from, made again under to; false at the
// first that cannot be copied.
bool CopyTree(const QString& from, const QString& to) {
    if (!QDir().mkpath(to)) return false;
    QDirIterator it(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    const QDir source(from);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = QDir(to).filePath(source.relativeFilePath(path));
        const bool ok = it.fileInfo().isDir() ? QDir().mkpath(target) : QFile::copy(path, target);
        if (!ok) return false;
    }
    return true;
}

bool CopyFolderFiles(const QString& from, const QString& to) {
    const QDir source(from);
    bool ok = true;
    for (const QString& name : source.entryList(QDir::Files))
        if (!QFileInfo::exists(QDir(to).filePath(name)))
            ok &= QFile::copy(source.filePath(name), QDir(to).filePath(name));
    return ok;
}

bool Fail(QString* error, const QString& why) {
    if (error) *error = why;
    return false;
}

}  // namespace

CZevrantDoc::CZevrantDoc(QObject* parent)
    : QObject(parent),
      m_strTitle(tr("New Project")),
      m_pProject(std::make_unique<CProjectManager>(1920, 1080)) {
    m_pProject->SetHost(this);
}

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

void CZevrantDoc::TakePaths(const UstProjectPaths& paths) {
    m_strProjectPath = paths.strProjectPath;
    m_strBackupPath = paths.strBackupPath;
    m_strFolder = paths.strFolder;
    m_strDataFolder = paths.strDataFolder;
    m_strObjectFolder = paths.strObjectFolder;
    m_strWorkspace = paths.strWorkspace;
    m_strTitle = paths.strTitle;
}

bool CZevrantDoc::OpenDocument(const QString& fileOrFolder, QString* error, QString* notice) {
    const UstProjectPaths paths = ProjectPathsFor(fileOrFolder);
    auto project = std::make_unique<CProjectManager>();
    const UstOpenOutcome outcome = OpenProjectFiles(*project, paths);
    if (notice) *notice = outcome.strNotice;
    if (!outcome.bOpened) return Fail(error, outcome.strError);
    project->SetHost(this);
    // The fields' values live beside the project file; a damaged data file
    // costs them, not the project.
    std::vector<CPageManager*> pages;
    for (const auto& page : project->Pages())
        pages.push_back(page.get());
    QString dataError;
    if (!LoadPageData(paths.strFolder, pages, &dataError) && notice)
        *notice = notice->isEmpty() ? dataError : *notice + '\n' + dataError;
    m_pProject = std::move(project);
    TakePaths(paths);
    m_bFromBackup = outcome.bFromBackup ? 1 : 0;
    m_pSessionFolder.reset();
    return true;
}

QString CZevrantDoc::Save(QString* error) {
    if (!HasFile()) {
        Fail(error, tr("The project has no folder yet."));
        return {};
    }
    if (!m_pProject->m_bModified) return {};
    if (CPageManager* page = m_pProject->GetCurPage()) page->EndTextEdit();
    if (!SaveWorkingFile(*m_pProject, Paths(), error)) return {};
    return QFileInfo(m_strBackupPath).fileName();
}

QString CZevrantDoc::AutoSave() {
    // Without a page on the canvas there is nothing the operator is working on.
    if (!HasFile() || !m_pProject->GetCurPage() || !m_pProject->m_bModified) return {};
    if (!SaveWorkingFile(*m_pProject, Paths(), nullptr)) return {};
    return QFileInfo(m_strBackupPath).fileName();
}

CZevrantDoc::EClose CZevrantDoc::CloseDocument(bool onAir, bool autoSave,
                                               const std::function<bool()>& askSave) {
    if (onAir) return EClose::REFUSED_ON_AIR;
    if (CPageManager* page = m_pProject->GetCurPage()) page->EndTextEdit();
    if (!HasFile()) return EClose::CLOSED;
    const UstProjectPaths paths = Paths();
    if (m_pProject->m_bModified) {
        if (autoSave || (askSave && askSave())) {
            SaveWorkingFile(*m_pProject, paths, nullptr);
        } else {
            // Everything since the project was opened goes, saves included.
            DiscardWorkingFile(paths);
            return EClose::CLOSED;
        }
    }
    PromoteWorkingFile(paths);
    return EClose::CLOSED;
}

bool CZevrantDoc::SaveAs(const QString& newFolder, QString* error) {
    const QString failed = tr("Failed copying files.");
    QString target = QDir::cleanPath(QDir(newFolder).absolutePath());
    // The name must be free and valid: a folder can be made there.
    if (!QDir().mkdir(target) || !QDir().rmdir(target)) return Fail(error, failed);
    if (!HasFile()) return SaveIntoNewFolder(target, error);
    const UstProjectPaths old = Paths();
    if (m_pProject->m_bModified && !SaveWorkingFile(*m_pProject, old, error))
        return Fail(error, failed);
    if (!PromoteWorkingFile(old)) return Fail(error, failed);
    if (!CopyTree(QDir(old.strFolder).absolutePath(), target)) {
        QDir(target).removeRecursively();
        // The old project goes on being worked on: it needs its working
        // file back.
        QFile::copy(old.strProjectPath, old.strBackupPath);
        return Fail(error, failed);
    }
    const UstProjectPaths paths = ProjectPathsFor(target);
    m_pProject->SetFolder(paths.strFolder);
    QFile working(paths.strBackupPath);
    if (!working.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return Fail(error, failed);
    working.close();
    TakePaths(paths);
    for (const auto& page : m_pProject->Pages())
        page->SetModified(true);
    return SaveWorkingFile(*m_pProject, paths, error);
}

bool CZevrantDoc::SaveIntoNewFolder(const QString& newFolder, QString* error) {
    if (!CreateProjectFolder(newFolder, m_pProject->m_nWidth, m_pProject->m_nHeight, error))
        return false;
    const UstProjectPaths paths = ProjectPathsFor(newFolder);
    if (!m_pProject->ObjectFolder().isEmpty() &&
        !CopyFolderFiles(m_pProject->ObjectFolder(), paths.strObjectFolder))
        return Fail(error, tr("Failed copying files."));
    m_pProject->SetFolder(paths.strFolder);
    // Every page gets its thumbnail file in the new folder.
    for (const auto& page : m_pProject->Pages())
        page->SetModified(true);
    QFile working(paths.strBackupPath);
    if (!working.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return Fail(error, working.errorString());
    working.close();
    TakePaths(paths);
    m_pSessionFolder.reset();
    return SaveWorkingFile(*m_pProject, paths, error);
}

}  // namespace orv
