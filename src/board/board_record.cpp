#include "board/board_record.h"

#include <algorithm>
#include <cstring>

#include "board/canvas.h"
#include "project/profile_file.h"

namespace orv {

namespace {
constexpr int64_t SHORTEST_FRAME = 50000;    // 200 frames a second
constexpr int64_t LONGEST_FRAME = 10000000;  // one frame a second
}  // namespace

UstBoardRecord DefaultBoardRecord() {
    UstBoardRecord rec;
    std::memset(&rec, 0, sizeof rec);
    rec.nWidth = 1920;
    rec.nHeight = 1080;
    rec.nFrameDuration = 333667;
    rec.nAudioChannels = 2;
    rec.nAudioBits = 16;
    rec.nAudioRate = 48000;
    rec.nKeyMode = 1;
    return rec;
}

bool LoadBoardRecord(const std::filesystem::path& file, UstBoardRecord& rec) {
    return GetProfileStruct(file, BOARD_INI_SECTION, BOARD_INI_KEY, &rec, sizeof rec);
}

bool SaveBoardRecord(const std::filesystem::path& file, const UstBoardRecord& rec) {
    return WriteProfileStruct(file, BOARD_INI_SECTION, BOARD_INI_KEY, &rec, sizeof rec);
}

bool RepairRecordMode(UstBoardRecord& rec) {
    const int32_t width = rec.nWidth, height = rec.nHeight;
    const int64_t duration = rec.nFrameDuration;
    if (width > 0 && width <= CANVAS_SIZE && height > 0 && height <= CANVAS_SIZE &&
        duration >= SHORTEST_FRAME && duration <= LONGEST_FRAME)
        return false;
    const UstBoardRecord def = DefaultBoardRecord();
    std::memcpy(&rec, &def, 24);
    return true;
}

QString RecordDeviceName(const UstBoardRecord& rec) {
    char16_t name[32];
    std::memcpy(name, rec.szDeviceName, sizeof name);
    name[31] = 0;
    return QString::fromUtf16(name);
}

void SetRecordDeviceName(UstBoardRecord& rec, const QString& name) {
    char16_t text[32] = {};
    const qsizetype n = std::min<qsizetype>(name.size(), 31);
    std::memcpy(text, name.utf16(), static_cast<size_t>(n) * sizeof(char16_t));
    std::memcpy(rec.szDeviceName, text, sizeof text);
}

}  // namespace orv
