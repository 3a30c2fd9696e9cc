#pragma once
// The operator's list of play mode: the project's pages, the range, the
// passes and the discard policy. The list pane owns it and the play engine
// reads it from its own thread while the operator moves the cursor and
// edits the range, so every word is a single atomic load or store; the page
// array itself changes only while the engine is idle (on entering play
// mode).

#include <atomic>
#include <cstdint>
#include <vector>

namespace orv {

class CPageManager;

enum EPlayListMode : int { PLAYLIST_MANUAL = 0, PLAYLIST_AUTO = 1 };

struct UstPlayList {
    std::vector<CPageManager*> m_pPages;
    std::atomic<int32_t> m_nMode{PLAYLIST_MANUAL};
    std::atomic<int32_t> m_nCurrent{0};  // the next page to play
    std::atomic<int32_t> m_nStart{0};
    std::atomic<int32_t> m_nEnd{0};
    std::atomic<int32_t> m_nRepeat{1};  // passes over the range; 0 without end
    std::atomic<int32_t> m_bIgnoreDiscard{0};

    int Count() const { return static_cast<int>(m_pPages.size()); }
    bool IsDiscarded(int index) const;
};

// The next page after `from`, cyclically, inside [m_nStart, m_nEnd]:
// discarded pages are passed over unless the list ignores the flag or
// `useDiscarded` is set. Going past the last page sets `wrapped`; -1 (with
// `wrapped` set) when no page qualifies.
int NextPlayIndex(const UstPlayList& list, int from, int& wrapped, int useDiscarded);

}  // namespace orv
