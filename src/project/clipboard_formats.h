#pragma once
// What the clipboard carries between pages and projects: the object format
// and the page format as private types holding their flat records, the
// object folder the media of those records lie in, plain text and files.

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

class QMimeData;

namespace orv {

enum EClipboardCommand : uint32_t {
    CMD_COPY = 57634,
    CMD_CUT = 57635,
    CMD_PASTE = 57637,
    CMD_UNDO = 57643,
    CMD_REDO = 57644
};

// Format 512: a count, then each object's packed state.
inline constexpr char MIME_OBJECTS[] = "application/x-orvantis-hd-objects";
// Format 767: a count, then each page's flat record.
inline constexpr char MIME_PAGES[] = "application/x-orvantis-hd-pages";
// The object folder of the project the records came from.
inline constexpr char MIME_SOURCE_FOLDER[] = "application/x-orvantis-hd-object-folder";

// A block of the two formats: the count, then the records.
std::vector<uint8_t> CountedBlock(uint32_t count, const std::vector<uint8_t>& records);
std::vector<uint8_t> MimeBlock(const QMimeData& mime, const char* type);
void SetMimeBlock(QMimeData& mime, const char* type, const std::vector<uint8_t>& block);
QString MimeSourceFolder(const QMimeData& mime);
void SetMimeSourceFolder(QMimeData& mime, const QString& folder);
// Plain text as offered, or the narrow text of the system when that is
// all there is; empty without either.
QString MimePlainText(const QMimeData& mime);
// Local files named by the uri list.
QStringList MimeLocalFiles(const QMimeData& mime);

// The object count of a format 512 block and the kind of its first object;
// false when the block is too short to say.
bool PeekObjectBlock(const std::vector<uint8_t>& block, uint32_t* count, int32_t* firstKind);

}  // namespace orv
