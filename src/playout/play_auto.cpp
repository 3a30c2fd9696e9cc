// The automatic loop: the list's range, pass after pass, with the pages'
// delays doing the operator's work. It holds the engine's lock only while
// it draws, and looks at the flags between stages and between the pieces of
// every delay, so that Stop ends it within one piece or one transition.
#include "playout/effect_request.h"
#include "playout/play_engine.h"
#include "playout/transition_driver.h"
#include "project/page_manager.h"

namespace orv {

namespace {

int Delay(CPageManager* page, int field) {
    return LoadRequestWord(RequestWords(page->m_effect), field);
}

}  // namespace

void CPlayEngine::RunAutoLoop() {
    UstPlayList& list = *m_pPlayList.load();
    const int repeat = list.m_nRepeat.load();
    const int start = list.m_nStart.load();
    int index = start, done = 0;
    CPageManager* page = nullptr;
    m_nPasses.store(repeat ? repeat : ENDLESS_PASSES);
    SetMode(2);
    // Passes count wraps of the range, not pages.
    const auto countWrap = [&] {
        if (!done) return;
        m_nPasses.store(repeat ? m_nPasses.load() - 1 : ENDLESS_PASSES);
        done = 0;
    };
    while (Running() && !done && m_nPasses.load() >= 1) {
        switch (m_nState.load()) {
            case PLAY_IDLE:
                Post(PLAY_IDLE, 1);
                m_nState.store(PLAY_LOAD);
                index = NextIndex(start - 1, done, 0);
                if (index < 0) {
                    m_nState.store(PLAY_IDLE);
                    done = 1;
                }
                break;
            case PLAY_LOAD:
                Post(PLAY_LOAD, index);
                page = list.m_pPages[static_cast<size_t>(index)];
                m_nState.store(PLAY_IN);
                break;
            case PLAY_IN:
                if (!AutoIn(page, index)) break;
                if (!page->IsScrollPage()) {
                    m_nState.store(PLAY_ON);
                    break;
                }
                index = NextIndex(index, done, 0);
                countWrap();
                done = index < 0;
                m_nState.store(PLAY_LOAD);
                break;
            case PLAY_ON:
                AutoOnAir(page, index);
                if (!Running()) break;
                Post(PLAY_ON, index);
                m_nState.store(PLAY_OUT);
                break;
            case PLAY_OUT:
                if (!page->IsScrollPage()) {
                    CStepLock lock(*this);
                    if (!Running()) break;
                    Post(PLAY_OUT, index);
                    StopTimers();
                    m_pEffect->Run(RequestWords(page->m_effect), 2, nullptr);
                }
                m_nState.store(PLAY_GONE);
                break;
            case PLAY_GONE:
                if (!page->IsScrollPage()) {
                    Post(PLAY_GONE, index);
                    if (!Hold(Delay(page, REQ_OUT_DELAY))) break;
                }
                index = NextIndex(index, done, 0);
                countWrap();
                done = index < 0;
                m_nState.store(PLAY_LOAD);
                break;
            default:
                done = 1;
                break;
        }
    }
    m_nState.store(PLAY_IDLE);
    // The list is used up or stopped: no play is in progress any more, and
    // a Run that came meanwhile must not start the loop again by itself.
    m_bRun.store(0);
    if (!m_bExit.load()) {
        Post(PLAY_IDLE, 0);
        SetMode(1);
    }
}

bool CPlayEngine::AutoIn(CPageManager* page, int index) {
    CStepLock lock(*this);
    if (!Running()) return false;
    const bool scroll = page->IsScrollPage();
    if (scroll) BeginScroll(page);
    RenderPage(page);
    Post(PLAY_IN, index);
    m_pEffect->Run(RequestWords(page->m_effect), 0, page);
    if (!scroll) TypeOnAir(page, false);
    if (scroll) {
        Post(PLAY_GONE, index);
        EndScroll(page);
    }
    return true;
}

// The page's time on air: its animations play their counts, its blink runs
// for the in delay, and a plain page simply waits that long.
void CPlayEngine::AutoOnAir(CPageManager* page, int index) {
    if (page->HasAnimation()) {
        Post(PLAY_LIVE, index);
        CStepLock lock(*this);
        if (Running()) m_pEffect->RunLive(1, page, 0);
    } else if (page->HasBlinkObject()) {
        Post(PLAY_BLINK, index);
        CStepLock lock(*this);
        if (Running()) m_pEffect->RunLive(0, page, 0);
    } else {
        Hold(Delay(page, REQ_IN_DELAY));
    }
}

// False when the engine stopped during the wait.
bool CPlayEngine::Hold(int seconds) {
    for (int64_t waited = 0; waited < int64_t{seconds} * 1000; waited += DELAY_PIECE_MS) {
        if (!Running()) return false;
        if (m_fnWait)
            m_fnWait(DELAY_PIECE_MS);
        else
            m_pEffect->WaitMs(DELAY_PIECE_MS);
        if (TimersRunning()) TickTimers(false);
    }
    return Running();
}

}  // namespace orv
