#include "render/gradient.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>

namespace orv {

namespace {

std::atomic<uint32_t> g_nextPegId{0};

struct UstRgb {
    float r, g, b;
};
struct UstHsl {
    float h, s, l;
};

UstRgb Channels(uint32_t c) {
    return {static_cast<float>(c & 255), static_cast<float>((c >> 8) & 255),
            static_cast<float>((c >> 16) & 255)};
}

uint32_t Pack(float r, float g, float b) {
    auto byte = [](float v) {
        return static_cast<uint32_t>(std::clamp(static_cast<int>(v), 0, 255));
    };
    return byte(r) | byte(g) << 8 | byte(b) << 16;
}

UstHsl ToHsl(uint32_t c) {
    const UstRgb x = Channels(c);
    const float r = x.r / 255.0f, g = x.g / 255.0f, b = x.b / 255.0f;
    const float mx = std::max({r, g, b}), mn = std::min({r, g, b});
    UstHsl out{0.0f, 0.0f, (mx + mn) / 2.0f};
    if (mx == mn) return out;
    const float d = mx - mn;
    out.s = out.l > 0.5f ? d / (2.0f - mx - mn) : d / (mx + mn);
    float sextant = mx == r ? (g - b) / d : mx == g ? 2.0f + (b - r) / d : 4.0f + (r - g) / d;
    if (sextant < 0) sextant += 6.0f;
    out.h = sextant / 6.0f;
    return out;
}

float HueChannel(float p, float q, float t) {
    if (t < 0) t += 1;
    if (t > 1) t -= 1;
    if (t < 1.0f / 6) return p + (q - p) * 6 * t;
    if (t < 0.5f) return q;
    if (t < 2.0f / 3) return p + (q - p) * (2.0f / 3 - t) * 6;
    return p;
}

uint32_t FromHsl(UstHsl c) {
    if (c.s == 0) return Pack(c.l * 255, c.l * 255, c.l * 255);
    const float q = c.l < 0.5f ? c.l * (1 + c.s) : c.l + c.s - c.l * c.s;
    const float p = 2 * c.l - q;
    return Pack(HueChannel(p, q, c.h + 1.0f / 3) * 255, HueChannel(p, q, c.h) * 255,
                HueChannel(p, q, c.h - 1.0f / 3) * 255);
}

uint32_t HueBlend(uint32_t a, uint32_t b, float f, int method) {
    const UstHsl x = ToHsl(a), y = ToHsl(b);
    float hb = y.h;
    const float diff = hb - x.h;
    switch (method) {
        case CGradient::HUE_FORWARD:
            if (hb < x.h) hb += 1;
            break;
        case CGradient::HUE_BACKWARD:
            if (hb > x.h) hb -= 1;
            break;
        case CGradient::HUE_SHORTEST:
            if (diff > 0.5f)
                hb -= 1;
            else if (diff < -0.5f)
                hb += 1;
            break;
        default:  // the long way round
            if (diff >= 0 && diff < 0.5f)
                hb -= 1;
            else if (diff < 0 && diff > -0.5f)
                hb += 1;
            break;
    }
    float h = x.h + (hb - x.h) * f;
    if (h > 1.0f) h -= 1.0f;
    if (h < 0.0f) h += 1.0f;
    return FromHsl({h, x.s + (y.s - x.s) * f, x.l + (y.l - x.l) * f});
}

}  // namespace

CPeg::CPeg(uint32_t c, float p) : colour(c), position(p), id(g_nextPegId++) {}

CGradient::CGradient() = default;

void CGradient::Sort() {
    std::sort(m_pegs.begin(), m_pegs.end(),
              [](const CPeg& a, const CPeg& b) { return a.position < b.position; });
}

int CGradient::AddPeg(uint32_t colour, float position) {
    if (PegCount() >= MAX_PEGS) return PEG_NONE;
    const CPeg peg(colour, std::clamp(position, 0.0f, 1.0f));
    m_pegs.push_back(peg);
    Sort();
    return IndexFromId(peg.id);
}

int CGradient::SetPeg(int index, uint32_t colour, float position) {
    if (index == PEG_START)
        m_startPeg.colour = colour;
    else if (index == PEG_END)
        m_endPeg.colour = colour;
    else if (index == PEG_BACKGROUND)
        m_backgroundPeg.colour = colour;
    if (index < 0 || index >= PegCount()) return PEG_NONE;
    CPeg& peg = m_pegs[static_cast<size_t>(index)];
    peg.colour = colour;
    peg.position = std::clamp(position, 0.0f, 1.0f);
    const uint32_t id = peg.id;
    Sort();
    return IndexFromId(id);
}

void CGradient::RemovePeg(int index) {
    if (index >= 0 && index < PegCount()) m_pegs.erase(m_pegs.begin() + index);
}

const CPeg& CGradient::GetPeg(int index) const {
    if (index == PEG_START || index < PEG_BACKGROUND) return m_startPeg;
    if (index == PEG_END) return m_endPeg;
    if (index == PEG_BACKGROUND) return m_backgroundPeg;
    return m_pegs.at(static_cast<size_t>(index));
}

int CGradient::IndexFromId(uint32_t id) const {
    for (int i = 0; i < PegCount(); ++i)
        if (m_pegs[static_cast<size_t>(i)].id == id) return i;
    return PEG_NONE;
}

int CGradient::IndexFromPos(float position) const {
    int found = PEG_START;
    for (int i = 0; i < PegCount(); ++i)
        if (m_pegs[static_cast<size_t>(i)].position <= position) found = i;
    return found;
}

uint32_t CGradient::Between(const CPeg& from, const CPeg& to, float p) const {
    const UstRgb a = Channels(from.colour), b = Channels(to.colour);
    const float pa = from.position, pb = to.position;
    const float span = pb - pa;
    switch (m_nInterpolation) {
        case FLAT_START:
            return from.colour;
        case FLAT_MIDDLE:
            return Pack((a.r + b.r) / 2, (a.g + b.g) / 2, (a.b + b.b) / 2);
        case FLAT_END:
            return to.colour;
        case COSINE: {
            if (span == 0) return from.colour;
            const float t = (1.0f - std::cos(std::numbers::pi_v<float> * (p - pa) / span)) * 0.5f;
            return Pack(b.r * t + a.r * (1 - t), b.g * t + a.g * (1 - t), b.b * t + a.b * (1 - t));
        }
        case HUE_FORWARD:
        case HUE_BACKWARD:
        case HUE_SHORTEST:
        case HUE_LONGEST:
            return span == 0 ? from.colour
                             : HueBlend(from.colour, to.colour, (p - pa) / span, m_nInterpolation);
        case REVERSE:
            if (span == 0) return from.colour;
            if (p == pa) return to.colour;
            if (p == pb) return from.colour;
            return Pack((b.r * (pb - p) + a.r * (p - pa)) / span,
                        (b.g * (pb - p) + a.g * (p - pa)) / span,
                        (b.b * (pb - p) + a.b * (p - pa)) / span);
        default:  // linear
            if (span == 0 || p == pa) return from.colour;
            if (p == pb) return to.colour;
            return Pack((b.r * (p - pa) + a.r * (pb - p)) / span,
                        (b.g * (p - pa) + a.g * (pb - p)) / span,
                        (b.b * (p - pa) + a.b * (pb - p)) / span);
    }
}

uint32_t CGradient::GetColourAt(float p) const {
    if (p < 0.0f || p > 1.0f) return 0;
    if (p == 0.0f && m_bUseBackground) return m_backgroundPeg.colour;
    if (m_nQuantization != -1 && m_nQuantization > 0) {
        const float q = static_cast<float>(m_nQuantization);
        p = std::trunc(p * q) / q + 0.5f / q;
    }
    if (m_pegs.empty()) return Between(m_startPeg, m_endPeg, p);
    const int i = IndexFromPos(p);
    if (i == PEG_START) return Between(m_startPeg, m_pegs.front(), p);
    if (i == PegCount() - 1) return Between(m_pegs.back(), m_endPeg, p);
    return Between(m_pegs[static_cast<size_t>(i)], m_pegs[static_cast<size_t>(i + 1)], p);
}

std::vector<uint8_t> CGradient::MakeEntries(int n) const {
    std::vector<uint8_t> out;
    if (n <= 0) return out;
    out.reserve(static_cast<size_t>(n) * 3);
    for (int i = 0; i < n; ++i) {
        const uint32_t c = GetColourAt(static_cast<float>(i) / static_cast<float>(n));
        out.push_back(static_cast<uint8_t>(c & 255));
        out.push_back(static_cast<uint8_t>((c >> 8) & 255));
        out.push_back(static_cast<uint8_t>((c >> 16) & 255));
    }
    return out;
}

}  // namespace orv
