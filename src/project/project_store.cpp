#include "project/project_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "project/object_folder.h"
#include "project/profile_file.h"
#include "project/project_manager.h"
#include "project/thumb_file.h"
#include "render/fill_brush.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr const char* INI_SECTION = "QRD_PROJECT_INI";
constexpr float OLDEST_LISTED_VERSION = 1.3f;
constexpr int INTERPOLATION_BILINEAR = 2;
constexpr int LETTERBOX_TOP = 15, LETTERBOX_HEIGHT = 90;

bool Fail(QString* error, const QString& why) {
    if (error) *error = why;
    return false;
}

QString SystemError() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool WriteAll(int fd, const char* data, qint64 size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, static_cast<size_t>(size));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        data += n;
        size -= n;
    }
    return true;
}

// The folder's own entry is synchronised too, so that the rename itself
// survives a power cut.
void SyncFolder(const QString& folder) {
    const int fd = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

}  // namespace

UstProjectPaths ProjectPathsFor(const QString& fileOrFolder) {
    const QFileInfo given(fileOrFolder);
    const QString file = given.isDir() ? QDir(given.absoluteFilePath()).filePath(PROJECT_FILE_NAME)
                                       : given.absoluteFilePath();
    const QDir folder = QFileInfo(file).absoluteDir();
    UstProjectPaths p;
    p.strProjectPath = file;
    p.strBackupPath = file + WORKING_FILE_SUFFIX;
    p.strFolder = folder.absolutePath() + '/';
    p.strDataFolder = p.strFolder + "Data/";
    p.strObjectFolder = p.strFolder + "Object/";
    QDir above = folder;
    above.cdUp();
    p.strWorkspace = above.absolutePath();
    p.strTitle = folder.dirName();
    return p;
}

bool ReplaceFileSafely(const QString& path, const QByteArray& bytes, QString* error) {
    const QFileInfo info(path);
    const QString temp = info.absolutePath() + "/." + info.fileName() + ".saving";
    const QByteArray tempName = QFile::encodeName(temp);
    struct stat st {};
    const mode_t mode = ::stat(QFile::encodeName(path).constData(), &st) == 0
                            ? (st.st_mode & 07777)
                            : static_cast<mode_t>(0644);
    ::unlink(tempName.constData());  // left by a save that died
    const int fd = ::open(tempName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd < 0) return Fail(error, QStringLiteral("cannot be written: %1").arg(SystemError()));
    const bool written = WriteAll(fd, bytes.constData(), bytes.size()) && ::fsync(fd) == 0;
    const QString why = SystemError();
    ::close(fd);
    if (!written || ::rename(tempName.constData(), QFile::encodeName(path).constData()) != 0) {
        const QString reason = written ? SystemError() : why;
        ::unlink(tempName.constData());
        return Fail(error, QStringLiteral("cannot be written: %1").arg(reason));
    }
    SyncFolder(info.absolutePath());
    return true;
}

UstOpenOutcome OpenProjectFiles(CProjectManager& project, const UstProjectPaths& paths) {
    UstOpenOutcome out;
    if (QFileInfo::exists(paths.strBackupPath)) {
        out.bFromBackup = true;
        // Only a working file that loads may replace the project file.
        CProjectManager probe;
        QString why;
        if (probe.LoadProject(paths.strBackupPath, &why)) {
            if (!PromoteWorkingFile(paths)) {
                out.strError = QStringLiteral("the recovery file cannot take the project's place");
                return out;
            }
        } else {
            const QString aside = paths.strBackupPath + ".damaged-" + MakeTimestampName();
            QFile::rename(paths.strBackupPath, aside);
            out.strNotice = QStringLiteral("The recovery file was damaged (%1) and was kept as %2.")
                                .arg(why, QFileInfo(aside).fileName());
        }
    }
    if (!project.LoadProject(paths.strProjectPath, &out.strError)) return out;
    project.SetFolder(paths.strFolder);
    QDir().mkpath(paths.strDataFolder);
    QDir().mkpath(paths.strObjectFolder);
    // Written whole through a temporary file: a crash right after the open
    // leaves either no working file or a complete one, never an empty one.
    if (!project.SaveNewProject(paths.strBackupPath, &out.strError)) {
        return out;
    }
    out.bOpened = true;
    return out;
}

bool SaveWorkingFile(CProjectManager& project, const UstProjectPaths& paths, QString* error) {
    return project.SaveProject(paths.strBackupPath, error) == 1;
}

bool PromoteWorkingFile(const UstProjectPaths& paths) {
    if (!QFileInfo::exists(paths.strBackupPath)) return false;
    // One rename replaces the project file; there is no moment without one.
    const bool moved = ::rename(QFile::encodeName(paths.strBackupPath).constData(),
                                QFile::encodeName(paths.strProjectPath).constData()) == 0;
    if (moved) SyncFolder(QFileInfo(paths.strProjectPath).absolutePath());
    return moved;
}

bool DiscardWorkingFile(const UstProjectPaths& paths) {
    return QFile::remove(paths.strBackupPath);
}

bool CreateProjectFolder(const QString& folder, int width, int height, QString* error) {
    const QDir dir(folder);
    if (dir.exists()) return Fail(error, QStringLiteral("the folder exists already"));
    if (!QDir().mkdir(dir.absolutePath()))
        return Fail(error, QStringLiteral("the folder cannot be made"));
    if (!dir.mkdir("Data") || !dir.mkdir("Object") ||
        !CreateProjectFile(dir.filePath(PROJECT_FILE_NAME), width, height, error)) {
        QDir(dir.absolutePath()).removeRecursively();
        if (error && error->isEmpty()) *error = QStringLiteral("the folder cannot be filled");
        return false;
    }
    return true;
}

QString CreateNumberedProject(const QString& workspace) {
    QDir().mkpath(workspace);
    for (int n = 1; n < 100000; ++n) {
        const QString folder = QDir(workspace).filePath(QStringLiteral("CGProject%1").arg(n));
        if (QFileInfo::exists(folder)) continue;
        if (CreateProjectFolder(folder, 1920, 1080, nullptr))
            return QDir(folder).filePath(PROJECT_FILE_NAME);
        return {};
    }
    return {};
}

QString ProposeProjectName(const QString& current) {
    if (current.isEmpty() || !current.back().isDigit()) return current + '1';
    const int digit = current.back().digitValue();
    return current.left(current.size() - 1) + QString::number(digit + 1);
}

std::optional<UstProjectIni> ReadProjectIni(const QString& iniFile) {
    const std::filesystem::path ini = iniFile.toStdString();
    const auto workspace = ReadProfileString(ini, INI_SECTION, "Workspace");
    const auto project = ReadProfileString(ini, INI_SECTION, "Project");
    if (!workspace || !project || workspace->empty() || project->empty()) return std::nullopt;
    UstProjectIni out{QString::fromStdString(*workspace), QString::fromStdString(*project)};
    if (!QFileInfo(out.strProject).isFile()) return std::nullopt;
    return out;
}

bool WriteProjectIni(const QString& iniFile, const UstProjectIni& ini) {
    const std::filesystem::path file = iniFile.toStdString();
    return WriteProfileString(file, INI_SECTION, "Workspace", ini.strWorkspace.toStdString()) &&
           WriteProfileString(file, INI_SECTION, "Project", ini.strProject.toStdString());
}

namespace {

QString FileTime(const QDateTime& t) {
    return t.toString(QStringLiteral("yyyy-MM-dd AP hh:mm"));
}

// The first page's thumbnail as the dialog shows it: a 640-wide project's
// fills the icon, a wide one's stands letterboxed on a hatch.
std::vector<uint32_t> PreviewOf(const std::vector<uint32_t>& thumb, int thumbHeight) {
    std::vector<uint32_t> bits(static_cast<size_t>(PRJ_THUMB_WIDTH) * PRJ_THUMB_HEIGHT, 0);
    const UstRect from{0, 0, 300, thumbHeight};
    if (thumbHeight == 225) {
        ScalePixelRect(bits.data(), {0, 0, PRJ_THUMB_WIDTH, PRJ_THUMB_HEIGHT}, thumb.data(), from,
                       INTERPOLATION_BILINEAR);
    } else {
        QImage icon(reinterpret_cast<uchar*>(bits.data()), PRJ_THUMB_WIDTH, PRJ_THUMB_HEIGHT,
                    PRJ_THUMB_WIDTH * 4, QImage::Format_ARGB32_Premultiplied);
        QPainter(&icon).fillRect(icon.rect(), HatchBrush(22, 0xFF808080u, 0xFF0000FFu));
        std::vector<uint32_t> band(static_cast<size_t>(PRJ_THUMB_WIDTH) * LETTERBOX_HEIGHT);
        ScalePixelRect(band.data(), {0, 0, PRJ_THUMB_WIDTH, LETTERBOX_HEIGHT}, thumb.data(), from,
                       INTERPOLATION_BILINEAR);
        std::copy(band.begin(), band.end(),
                  bits.begin() + static_cast<ptrdiff_t>(LETTERBOX_TOP) * PRJ_THUMB_WIDTH);
    }
    FlipPixels(bits.data(), PRJ_THUMB_WIDTH, PRJ_THUMB_HEIGHT, 0);
    for (uint32_t& p : bits)
        p |= 0xFF000000u;
    return bits;
}

}  // namespace

std::optional<UstPrjThumb> ReadProjectInfo(const QString& projectFile, bool withPreview) {
    QFile file(projectFile);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray head = file.read(4096);
    UstProjectHeader header;
    try {
        CByteReader in(head.constData(), static_cast<size_t>(head.size()));
        header = ReadProjectHeader(in);
    } catch (const std::exception&) {
        return std::nullopt;
    }
    if (!(header.fVersion >= OLDEST_LISTED_VERSION)) return std::nullopt;
    const QFileInfo info(projectFile);
    UstPrjThumb row;
    row.strPath = info.absoluteFilePath();
    row.nPages = static_cast<int32_t>(header.nPages);
    row.strCreated = FileTime(info.birthTime().isValid() ? info.birthTime() : info.lastModified());
    row.strModified = FileTime(info.lastModified());
    if (withPreview && header.nPages > 0 && !header.strFirstThumb.isEmpty()) {
        const int h = header.nWidth == 640 ? 225 : 170;
        const std::vector<uint32_t> thumb =
            ReadThumbFile(info.absolutePath() + "/Data/" + header.strFirstThumb, 300, h);
        if (!thumb.empty()) row.pBits = PreviewOf(thumb, h);
    }
    return row;
}

std::vector<UstPrjThumb> ScanWorkspace(const QString& workspace, const QStringList& openProjects,
                                       bool withPreview) {
    std::vector<UstPrjThumb> rows;
    QStringList open;
    for (const QString& p : openProjects)
        open << QFileInfo(p).absoluteFilePath();
    const QDir dir(workspace);
    for (const QString& name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (name.startsWith('.')) continue;
        const QString file = QDir(dir.filePath(name)).filePath(PROJECT_FILE_NAME);
        if (!QFileInfo(file).isFile() || open.contains(QFileInfo(file).absoluteFilePath()))
            continue;
        if (auto row = ReadProjectInfo(file, withPreview)) rows.push_back(std::move(*row));
    }
    return rows;
}

}  // namespace orv
