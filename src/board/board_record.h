#pragma once
// The board record: the output mode, audio mode, key mode and device of the
// card, kept whole in board.ini and written only when the board closes.

#include <cstdint>
#include <filesystem>
#include <string>

#include <QString>

namespace orv {

#pragma pack(push, 1)
struct UstBoardRecord {
    int32_t nWidth;
    int32_t nHeight;
    int64_t nFrameDuration;  // 100 ns units
    uint32_t nVideoHandle;   // the chosen mode row's last word but one
    uint32_t nVideoFlags;    // the chosen mode row's last word (see CfgVideo)
    uint16_t nAudioChannels;
    uint16_t nAudioBits;
    uint32_t nAudioRate;
    uint32_t nReserved;
    int32_t nKeyMode;           // 0 internal, 1 external
    char16_t szDeviceName[32];  // zero-terminated
};
#pragma pack(pop)
static_assert(sizeof(UstBoardRecord) == 104);

inline constexpr const char* BOARD_INI_SECTION = "QRD_BOARD_INI";
inline constexpr const char* BOARD_INI_KEY = "Orvantis-HD";

UstBoardRecord DefaultBoardRecord();

// Reads the record over rec; a missing or damaged file leaves rec as it was.
bool LoadBoardRecord(const std::filesystem::path& file, UstBoardRecord& rec);
bool SaveBoardRecord(const std::filesystem::path& file, const UstBoardRecord& rec);

// A record whose mode no output can run (no size, a size beyond the canvas,
// no frame duration) gets the default mode back; true if it did.
bool RepairRecordMode(UstBoardRecord& rec);

QString RecordDeviceName(const UstBoardRecord& rec);
// At most 31 characters are kept.
void SetRecordDeviceName(UstBoardRecord& rec, const QString& name);

}  // namespace orv
