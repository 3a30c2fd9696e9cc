#include "playout/play_list.h"

#include "playout/effect_request.h"
#include "project/page_manager.h"

namespace orv {

bool UstPlayList::IsDiscarded(int index) const {
    if (index < 0 || index >= Count() || !m_pPages[static_cast<size_t>(index)]) return true;
    return LoadRequestWord(RequestWords(m_pPages[static_cast<size_t>(index)]->m_effect),
                           REQ_DISCARD) != 0;
}

int NextPlayIndex(const UstPlayList& list, int from, int& wrapped, int useDiscarded) {
    const int count = list.Count();
    const int start = list.m_nStart.load(std::memory_order_relaxed);
    const int end = list.m_nEnd.load(std::memory_order_relaxed);
    const bool ignore = list.m_bIgnoreDiscard.load(std::memory_order_relaxed) != 0;
    for (int i = from + 1; i <= from + count; ++i) {
        if (i >= count) wrapped = 1;
        const int page = (i % count + count) % count;
        if (page < start || page > end) continue;
        if (ignore || useDiscarded || !list.IsDiscarded(page)) return page;
    }
    wrapped = 1;
    return -1;
}

}  // namespace orv
