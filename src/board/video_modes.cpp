#include "board/video_modes.h"

#include <cmath>
#include <cstdio>
#include <numeric>

namespace orv {

namespace {

constexpr int64_t UNITS_PER_SECOND = 10'000'000;

struct UstNamedMode {
    const char* name;
    int width, height;
    int64_t duration;
    uint32_t flags;
    bool bFields;
    bool bStandard;
};

// Durations of the whole rates are the truncated quotient (416666 for 24),
// which is what the cards report and what keeps "24" out of "24.00".
constexpr UstNamedMode NAMED_MODES[] = {
    {"ntsc", 720, 486, 333667, 0, true, true},
    {"ntsc2398", 720, 486, 417083, 0, true, false},
    {"pal", 720, 576, 400000, 0, true, true},
    {"720p50", 1280, 720, 200000, 0, false, true},
    {"720p5994", 1280, 720, 166833, 0, false, true},
    {"720p60", 1280, 720, 166666, 0, false, true},
    {"1080i50", 1920, 1080, 400000, 0, true, true},
    {"1080i5994", 1920, 1080, 333667, 0, true, true},
    {"1080i60", 1920, 1080, 333333, 0, true, false},
    {"1080p2398", 1920, 1080, 417083, 0, false, true},
    {"1080p24", 1920, 1080, 416666, 0, false, true},
    {"1080p25", 1920, 1080, 400000, VIDEO_PROGRESSIVE, false, true},
    {"1080p2997", 1920, 1080, 333667, VIDEO_PROGRESSIVE, false, true},
    {"1080p30", 1920, 1080, 333333, VIDEO_PROGRESSIVE, false, true},
    {"1080p50", 1920, 1080, 200000, 0, false, true},
    {"1080p5994", 1920, 1080, 166833, 0, false, true},
    {"1080p60", 1920, 1080, 166666, 0, false, true},
};

const UstNamedMode* FindNamed(const CfgVideo& mode) {
    for (const UstNamedMode& m : NAMED_MODES)
        if (SameVideoMode(MakeVideoMode(m.width, m.height, m.duration, m.flags), mode)) return &m;
    return nullptr;
}

// "%.0f" when the rate is a whole number to within a hundredth, else "%.2f";
// the fraction is always that of f, also where twice f is shown.
QString RateText(float f, float shown) {
    const float fraction = f - static_cast<float>(static_cast<int>(f));
    return QString::asprintf(fraction <= 0.01f ? "%.0f" : "%.2f", static_cast<double>(shown));
}

}  // namespace

CfgVideo MakeVideoMode(int width, int height, int64_t duration, uint32_t flags) {
    CfgVideo m;
    m.nWidth = width;
    m.nHeight = height;
    m.nDurationLow = static_cast<uint32_t>(duration);
    m.nDurationHigh = static_cast<uint32_t>(static_cast<uint64_t>(duration) >> 32);
    m.nFlags = flags;
    return m;
}

std::vector<CfgVideo> StandardVideoModes() {
    std::vector<CfgVideo> modes;
    for (const UstNamedMode& m : NAMED_MODES)
        if (m.bStandard) modes.push_back(MakeVideoMode(m.width, m.height, m.duration, m.flags));
    return modes;
}

std::vector<CfgAudio> StandardAudioModes() {
    return {{2, 16, 48000, 0}, {8, 16, 48000, 0}, {16, 16, 48000, 0}};
}

void ApplyVideoMode(UstBoardRecord& rec, const CfgVideo& mode) {
    rec.nWidth = mode.nWidth;
    rec.nHeight = mode.nHeight;
    rec.nFrameDuration = mode.Duration();
    rec.nVideoHandle = mode.nHandle;
    rec.nVideoFlags = mode.nFlags;
}

CfgVideo RecordVideoMode(const UstBoardRecord& rec) {
    CfgVideo m = MakeVideoMode(rec.nWidth, rec.nHeight, rec.nFrameDuration, rec.nVideoFlags);
    m.nHandle = rec.nVideoHandle;
    return m;
}

bool SameVideoMode(const CfgVideo& a, const CfgVideo& b) {
    return a.nWidth == b.nWidth && a.nHeight == b.nHeight && a.nDurationLow == b.nDurationLow &&
           a.nDurationHigh == b.nDurationHigh &&
           (a.nFlags & VIDEO_PROGRESSIVE) == (b.nFlags & VIDEO_PROGRESSIVE);
}

int FindVideoMode(const std::vector<CfgVideo>& modes, const UstBoardRecord& rec) {
    const CfgVideo wanted = RecordVideoMode(rec);
    for (size_t i = 0; i < modes.size(); ++i)
        if (SameVideoMode(modes[i], wanted)) return static_cast<int>(i);
    return -1;
}

int FindAudioMode(const std::vector<CfgAudio>& modes, const UstBoardRecord& rec) {
    for (size_t i = 0; i < modes.size(); ++i) {
        const CfgAudio& a = modes[i];
        if (a.nChannels == rec.nAudioChannels && a.nRate == rec.nAudioRate &&
            a.nBits == rec.nAudioBits)
            return static_cast<int>(i);
    }
    return -1;
}

QString VideoRowText(const CfgVideo& mode) {
    const int64_t duration = mode.Duration();
    const float f = duration > 0 ? 10000000.0f / static_cast<float>(duration) : 0.0f;
    switch (mode.nHeight) {
        case 486:
            return duration == 417083 ? QString("NTSC 8-bit RGB (3:2 pulldown removal)")
                                      : QString("NTSC 8-bit RGB");
        case 576:
            return "PAL 8-bit RGB";
        case 720:
            return f >= 50.0f
                       ? QString("HD 720p %1 8-bit RGB").arg(RateText(f, f))
                       : QString("HD 720p %1 8-bit RGB (Overcranked 60p)").arg(RateText(f, f));
        case 1080:
            if (f >= 25.0f && f < 50.0f && !(mode.nFlags & VIDEO_PROGRESSIVE))
                return QString("HD 1080i %1 8-bit RGB").arg(RateText(f, 2.0f * f));
            return QString("HD 1080p %1 8-bit RGB").arg(RateText(f, f));
        default:
            return {};
    }
}

QString AudioRowText(const CfgAudio& mode) {
    const double khz = mode.nRate / 1000.0;
    const char* form =
        mode.nChannels == 1 ? "%d channel, %2.1fkHz, %d-bit" : "%d channels, %2.1fkHz, %d-bit";
    return QString::asprintf(form, mode.nChannels, khz, mode.nBits);
}

QString ModeNameFor(int width, int height) {
    switch (height) {
        case 486:
            return QString::asprintf("NTSC %d x %d", width, 486);
        case 576:
            return QString::asprintf("PAL %d x %d", width, 576);
        case 720:
        case 1080:
            return QString::asprintf("HD %d x %d", width, height);
        default:
            return {};
    }
}

void PixelAspectFor(int height, float& x, float& y) {
    switch (height) {
        case 486:
            x = 1.125f, y = 1.0f;
            return;
        case 576:
            x = 1.125f, y = 1.2f;
            return;
        case 720:
            x = 0.66667f, y = 0.66667f;
            return;
        default:
            x = 1.0f, y = 1.0f;
            return;
    }
}

int FramesPerSecond(int64_t duration) {
    return duration > 0 ? static_cast<int>(UNITS_PER_SECOND / duration) : 0;
}

UstFraction FrameRateOf(int64_t duration) {
    if (duration <= 0) return {0, 1};
    const double fps = static_cast<double>(UNITS_PER_SECOND) / static_cast<double>(duration);
    if (std::fabs(fps - std::round(fps)) < 0.001) return {static_cast<int>(std::round(fps)), 1};
    const double ntsc = fps * 1.001;
    if (std::fabs(ntsc - std::round(ntsc)) < 0.001)
        return {static_cast<int>(std::round(ntsc)) * 1000, 1001};
    const int64_t g = std::gcd(UNITS_PER_SECOND, duration);
    return {static_cast<int>(UNITS_PER_SECOND / g), static_cast<int>(duration / g)};
}

std::string ModeShortName(const CfgVideo& mode) {
    const UstNamedMode* named = FindNamed(mode);
    return named ? named->name : std::string();
}

bool ModeByShortName(std::string_view name, CfgVideo& mode) {
    for (const UstNamedMode& m : NAMED_MODES) {
        if (name != m.name) continue;
        mode = MakeVideoMode(m.width, m.height, m.duration, m.flags);
        return true;
    }
    return false;
}

bool ModeSendsFields(const CfgVideo& mode) {
    if (const UstNamedMode* named = FindNamed(mode)) return named->bFields;
    if (mode.nHeight == 486 || mode.nHeight == 576) return true;
    const int fps = FramesPerSecond(mode.Duration());
    return mode.nHeight == 1080 && fps >= 25 && fps <= 30 && !(mode.nFlags & VIDEO_PROGRESSIVE);
}

}  // namespace orv
