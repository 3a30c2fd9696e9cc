// Roll and Crawl pages on air: the strip arithmetic, and the objects' live
// state that a run builds, cuts into strips and frees.
#include <algorithm>
#include <climits>

#include "project/page_manager.h"

namespace orv {

int CPageManager::GetStripCount(int* outPad, int w, int h) const {
    if (m_objects.empty() || !IsScrollPage() || w <= 0 || h <= 0) return 0;
    int right = 0, bottom = 0;
    for (const auto& o : m_objects) {
        const UstPoint e = o->GetLiveExtent();
        right = std::max(right, e.x);
        bottom = std::max(bottom, e.y);
    }
    const bool crawl = m_nPageType == 2;
    const int total = crawl ? right : bottom, unit = crawl ? w : h;
    // A page that divides exactly still gets one strip more, on purpose.
    const int count = total / unit + (static_cast<double>(total) / unit > 0.0 ? 1 : 0);
    if (outPad) *outPad = 2048 - static_cast<int>((static_cast<int64_t>(unit) * count) % 2048);
    return count;
}

void CPageManager::BeginScroll(int w, int h) {
    for (auto& o : m_objects)
        o->ResetLive(w, h);
}

void CPageManager::EndScroll() {
    for (auto& o : m_objects)
        o->FreeLive();
}

void CPageManager::DrawStrip(int index, uint32_t* bits, int w, int h) const {
    if (!bits || w <= 0 || h <= 0 || index < 0) return;
    auto at = [](int64_t v) { return static_cast<int>(std::min<int64_t>(v, INT_MAX)); };
    const bool crawl = m_nPageType == 2;
    const int left = crawl ? at(int64_t{index} * w) : 0;
    const int top = crawl ? 0 : at(int64_t{index} * h);
    const int right = crawl ? at(int64_t{index + 1} * w) : w;
    const int bottom = crawl ? h : at(int64_t{index + 1} * h);
    for (const auto& o : m_objects)
        o->DrawLive(bits, w, h, left, top, right, bottom);
}

}  // namespace orv
