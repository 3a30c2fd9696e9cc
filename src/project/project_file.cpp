// The project file: a header at offset 0, the page list at 128, and between
// and behind them whatever the file held before.
#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include "objects/archive_fields.h"
#include "project/archive.h"
#include "project/project_manager.h"
#include "project/project_store.h"

namespace orv {

namespace {

// Far more than any project needs; a larger file is not read into memory.
constexpr qint64 MAX_PROJECT_FILE = qint64(1) << 30;

// A frame size the project formats do not have cannot be drawn or played.
bool IsProjectFrame(int32_t width, int32_t height) {
    return (width == 640 || width == 1920) && height > 0 && height <= 2 * width;
}

bool Fail(QString* error, const QString& why) {
    if (error) *error = why;
    return false;
}

// The whole file, or the reason it cannot be had.
bool ReadWhole(const QString& path, QByteArray& bytes, QString* error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Fail(error, QStringLiteral("cannot be opened: %1").arg(file.errorString()));
    if (file.size() > MAX_PROJECT_FILE)
        return Fail(error, QStringLiteral("is too large for a project file"));
    bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return Fail(error, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    return true;
}

struct UstLoadedProject {
    UstProjectHeader header;
    std::vector<std::unique_ptr<CPageManager>> pages;
};

std::string EndsEarly(qsizetype size) {
    return QStringLiteral("the file ends early, at byte %1").arg(size).toStdString();
}

void ParsePages(CArchiveIn& ar, UstLoadedProject& out) {
    const uint32_t count = ar.ReadCount(2);
    for (uint32_t i = 0; i < count; ++i)
        out.pages.push_back(ar.ReadPage());
}

// Throws std::out_of_range for a file that ends too early and
// std::runtime_error, with the place, for any other damage.
void ParseProject(const QByteArray& bytes, UstLoadedProject& out) {
    const auto size = static_cast<size_t>(bytes.size());
    CByteReader head(bytes.constData(), size);
    try {
        out.header = ReadProjectHeader(head);
    } catch (const std::out_of_range&) {
        throw std::out_of_range(EndsEarly(bytes.size()));
    }
    if (!IsProjectFrame(out.header.nWidth, out.header.nHeight))
        throw std::runtime_error(QStringLiteral("a frame of %1 x %2, which no project has")
                                     .arg(out.header.nWidth)
                                     .arg(out.header.nHeight)
                                     .toStdString());
    if (size < PROJECT_HEADER_AREA) throw std::out_of_range(EndsEarly(bytes.size()));
    CByteReader list(bytes.constData() + PROJECT_HEADER_AREA, size - PROJECT_HEADER_AREA);
    CArchiveIn ar(list);
    try {
        ParsePages(ar, out);
    } catch (const std::out_of_range&) {
        throw std::out_of_range(EndsEarly(bytes.size()));
    } catch (const std::exception& e) {
        throw std::runtime_error(QStringLiteral("damaged at byte %1: %2")
                                     .arg(PROJECT_HEADER_AREA + list.Offset())
                                     .arg(QString::fromStdString(e.what()))
                                     .toStdString());
    }
}

}  // namespace

void WriteProjectHeader(CByteWriter& out, const UstProjectHeader& header) {
    out.Put(header.fVersion);
    out.Put(header.fZero);
    out.Put(header.nReserved);
    out.Put(header.nPages);
    WriteArchiveString(out, header.strFirstThumb);
    out.Put(header.nWidth);
    out.Put(header.nHeight);
}

UstProjectHeader ReadProjectHeader(CByteReader& in) {
    UstProjectHeader h;
    h.fVersion = in.Get<float>();
    h.fZero = in.Get<float>();
    h.nReserved = in.Get<uint32_t>();
    h.nPages = in.Get<uint32_t>();
    h.strFirstThumb = ReadArchiveString(in);
    h.nWidth = in.Get<int32_t>();
    h.nHeight = in.Get<int32_t>();
    return h;
}

bool CreateProjectFile(const QString& path, int width, int height, QString* error) {
    UstProjectHeader header;
    header.nWidth = width;
    header.nHeight = height;
    CByteWriter head;
    WriteProjectHeader(head, header);
    QByteArray bytes(NEW_PROJECT_FILE_SIZE, '\0');
    std::memcpy(bytes.data(), head.Bytes().data(), head.Size());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return Fail(error, QStringLiteral("cannot be created: %1").arg(file.errorString()));
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        file.remove();
        return Fail(error, QStringLiteral("cannot be written: %1").arg(file.errorString()));
    }
    return true;
}

void CProjectManager::Serialize(CByteWriter& header, CArchiveOut& list) const {
    UstProjectHeader h;
    h.nPages = static_cast<uint32_t>(m_aPages.size());
    if (!m_aPages.empty()) h.strFirstThumb = m_aPages.front()->m_strThumbFile;
    h.nWidth = m_nWidth;
    h.nHeight = m_nHeight;
    CByteWriter full;
    WriteProjectHeader(full, h);
    // A name so long that the frame size would stand where the list goes
    // (only a file from elsewhere can have one) is left out: the frame
    // matters, the name only serves the preview of the Open dialog.
    if (full.Size() > PROJECT_HEADER_AREA) h.strFirstThumb.clear();
    WriteProjectHeader(header, h);
    list.WriteCount(static_cast<uint32_t>(m_aPages.size()));
    for (const auto& page : m_aPages)
        list.WritePage(*page);
}

int CProjectManager::SaveProject(const QString& path, QString* error) {
    // What the file holds now stays wherever this save does not reach.
    QByteArray bytes;
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::ExistingOnly))
            return Fail(error,
                        QStringLiteral("cannot be opened for writing: %1").arg(file.errorString()));
        bytes = file.readAll();
    }
    return SaveProjectOver(path, std::move(bytes), error);
}

int CProjectManager::SaveNewProject(const QString& path, QString* error) {
    return SaveProjectOver(path, QByteArray(), error);
}

int CProjectManager::SaveProjectOver(const QString& path, QByteArray bytes, QString* error) {
    for (const auto& page : m_aPages)
        page->EnsureThumbFile();
    CByteWriter header;
    CArchiveOut list;
    try {
        Serialize(header, list);
    } catch (const std::exception& e) {
        return Fail(error, QString::fromStdString(e.what()));
    }
    const auto put = [&bytes](qsizetype at, const CByteWriter& part) {
        const auto size = static_cast<qsizetype>(part.Size());
        if (bytes.size() < at + size) bytes.resize(at + size, '\0');
        std::memcpy(bytes.data() + at, part.Bytes().data(), static_cast<size_t>(size));
    };
    // The list goes second, over anything of a header too long for its area.
    put(0, header);
    put(PROJECT_HEADER_AREA, list.Bytes());
    if (!ReplaceFileSafely(path, bytes, error)) return 0;
    m_nPageCount = static_cast<int32_t>(m_aPages.size());
    for (const auto& page : m_aPages)
        page->StoreThumbnail();
    m_bModified = 0;
    return 1;
}

int CProjectManager::LoadProject(const QString& path, QString* error) {
    QByteArray bytes;
    if (!ReadWhole(path, bytes, error)) return 0;
    return LoadProjectBytes(bytes, QFileInfo(path).absolutePath() + '/', error);
}

int CProjectManager::LoadProjectBytes(const QByteArray& bytes, const QString& folder,
                                      QString* error) {
    UstLoadedProject loaded;
    try {
        ParseProject(bytes, loaded);
    } catch (const std::out_of_range& e) {
        return Fail(error, QString::fromStdString(e.what()));
    } catch (const std::bad_alloc&) {
        return Fail(error, QStringLiteral("there is not enough memory to read it"));
    } catch (const std::exception& e) {
        return Fail(error, QString::fromStdString(e.what()));
    }
    if (m_pCurPage) m_pCurPage->Deactivate();
    m_pCurPage = nullptr;
    m_nCurPage = -1;
    m_pEditObject = nullptr;
    m_aPages = std::move(loaded.pages);
    m_pUndo->Clear();
    SetFrame(loaded.header.nWidth, loaded.header.nHeight);
    SetFolder(folder);
    m_nPageCount = static_cast<int32_t>(m_aPages.size());
    for (auto& page : m_aPages)
        page->Attach(this, nullptr);
    m_bModified = 0;
    return 1;
}

}  // namespace orv
