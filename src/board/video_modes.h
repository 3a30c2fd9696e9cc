#pragma once
// Video and audio modes: the rows the card offers (or the standard list when
// no card answers), their texts, and the rules that follow from a frame size.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <QString>

#include "board/board_record.h"

namespace orv {

struct UstSize {
    int cx = 0, cy = 0;
    bool operator==(const UstSize&) const = default;
};

// Bit of CfgVideo::nFlags: a 1920-wide mode of 25 to 30 frames that the card
// sends as whole frames, where the same size and duration otherwise means
// interlaced fields.
inline constexpr uint32_t VIDEO_PROGRESSIVE = 1;

struct CfgVideo {
    int32_t nWidth = 0;
    int32_t nHeight = 0;
    uint32_t nDurationLow = 0;
    uint32_t nDurationHigh = 0;
    uint32_t nHandle = 0;
    uint32_t nFlags = 0;

    int64_t Duration() const { return static_cast<int64_t>(nDurationHigh) << 32 | nDurationLow; }
};
static_assert(sizeof(CfgVideo) == 24);

struct CfgAudio {
    uint16_t nChannels = 2;
    uint16_t nBits = 16;
    uint32_t nRate = 48000;
    uint32_t nHandle = 0;
};

CfgVideo MakeVideoMode(int width, int height, int64_t duration, uint32_t flags = 0);

// NTSC, PAL, 720p50/59.94/60, 1080i50/59.94, 1080p23.98/24/25/29.97/30/50/59.94/60.
std::vector<CfgVideo> StandardVideoModes();
std::vector<CfgAudio> StandardAudioModes();

// The six words of a row go to the record's first 24 bytes.
void ApplyVideoMode(UstBoardRecord& rec, const CfgVideo& mode);
CfgVideo RecordVideoMode(const UstBoardRecord& rec);
// Width, height and both halves of the duration; the flags word tells a
// progressive 1080 row from its interlaced twin when both are listed.
bool SameVideoMode(const CfgVideo& a, const CfgVideo& b);
int FindVideoMode(const std::vector<CfgVideo>& modes, const UstBoardRecord& rec);
int FindAudioMode(const std::vector<CfgAudio>& modes, const UstBoardRecord& rec);

// The dialog's row texts; empty for a height that has none.
QString VideoRowText(const CfgVideo& mode);
QString AudioRowText(const CfgAudio& mode);

// "NTSC 720 x 486", "PAL 720 x 576", "HD 1920 x 1080"; empty for other heights.
QString ModeNameFor(int width, int height);
void PixelAspectFor(int height, float& x, float& y);

// Whole frames a second, as the integer division the field rules use:
// 333667 gives 29, 400000 gives 25, 417083 gives 23.
int FramesPerSecond(int64_t duration);

struct UstFraction {
    int num = 0, den = 1;
    bool operator==(const UstFraction&) const = default;
};
// The exact rate behind a duration: 30000/1001 for 333667, 25/1 for 400000.
UstFraction FrameRateOf(int64_t duration);

// Short names for the command line and the card: "ntsc", "pal", "720p5994",
// "1080i50", "1080p2398" and so on. Empty when a mode has none.
std::string ModeShortName(const CfgVideo& mode);
bool ModeByShortName(std::string_view name, CfgVideo& mode);
// Whether the card sends the mode as two fields a frame.
bool ModeSendsFields(const CfgVideo& mode);

}  // namespace orv
