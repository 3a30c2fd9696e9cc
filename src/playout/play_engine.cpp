#include "playout/play_engine.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "playout/effect_decklink.h"
#include "playout/effect_request.h"
#include "playout/scroll_speed.h"
#include "playout/transition_driver.h"
#include "project/page_manager.h"

namespace orv {

namespace {

// How often a key that waits for the step looks again at what it may end
// without the lock. A plain try_lock between sleeps: the timed waits of the
// standard mutex go through a call the thread sanitizer does not see.
constexpr std::chrono::milliseconds KEY_POLL{1};

}  // namespace

CPlayEngine::CPlayEngine(int channel, CGBoard* board, UstSize frame, UstSize thumb, IPlayHost* host)
    : m_nWidth(std::max(frame.cx, 0)),
      m_nHeight(std::max(frame.cy, 0)),
      m_nThumbWidth(thumb.cx),
      m_nThumbHeight(thumb.cy),
      m_pBufferA(static_cast<size_t>(m_nWidth) * m_nHeight),
      m_pBufferB(static_cast<size_t>(m_nWidth) * m_nHeight),
      m_pFrame(host) {
    if (board)
        m_pEffect = std::make_unique<EffectDecklink>(channel, board, m_pBufferA.data(),
                                                     m_pBufferB.data(), m_nWidth, m_nHeight);
    else
        m_pEffect = std::make_unique<Effect>(nullptr, m_pBufferA.data(), m_pBufferB.data(),
                                             m_nWidth, m_nHeight);
    m_pEffect->m_pTicker = this;
    m_hThread.Start([this] { WorkerMain(); });
}

// The effect goes before the buffers it draws from, and only once the worker
// that drives it has left.
CPlayEngine::~CPlayEngine() {
    m_pEffect->Effect::Stop();
    m_bRun.store(0);
    m_bExit.store(1);
    m_hEvent.Set();
    m_hThread.Join(Effect::WORKER_WAIT, Effect::WORKER_WAITS);
    m_pEffect.reset();
}

void CPlayEngine::WorkerMain() {
    while (!m_bExit.load()) {
        WaitForWork();
        if (Step()) RunAutoLoop();
    }
}

// The automatic loop runs outside the lock, so that Stop has nothing to
// wait for but a transition that has begun.
bool CPlayEngine::Step() {
    CStepLock lock(*this);
    if (m_bExit.load()) return false;
    const UstPlayList* list = m_pPlayList.load();
    const bool automatic = list && list->m_nMode.load() == PLAYLIST_AUTO;
    if (m_bSinglePage.load())
        StepSingle();
    else if (m_nState.load() == PLAY_IDLE && automatic)
        return m_bRun.load() != 0;
    else if (m_nState.load() != PLAY_END)
        StepList();
    return false;
}

int CPlayEngine::SetPage(CPageManager* page) {
    // A live stage, or text waiting to be typed on, keeps its page.
    if (m_nState.load() == PLAY_LIVE || m_nState.load() == PLAY_TYPING) return 1;
    if (m_bLocked.load()) return 0;
    if (!page) return 1;
    m_pPage.store(page);
    m_nState.store(PLAY_IDLE);
    m_bSinglePage.store(1);
    return 1;
}

// The stage's own flag decides, not the machine's state: another thread may
// have reset the state while an endless stage runs, and Run must still end
// it.
bool CPlayEngine::EndStage() {
    // Text typing on by itself shows whole at once.
    if (m_pEffect->m_bTyping.load()) {
        m_pEffect->m_bTyping.store(0);
        return true;
    }
    if (m_pEffect->m_bAnimating.load()) {
        m_pEffect->m_bAnimating.store(0);
        return true;
    }
    if (m_pEffect->m_bBlinking.load()) {
        m_pEffect->m_bBlinking.store(0);
        return true;
    }
    return false;
}

// Run waits for the step under way, but a blink or live stage that begins
// while it waits is still ended by it: the operator's key is never caught
// behind a stage that only that key can end.
//
// Stop clears the effect's flags itself and leaves the wait for a run in
// progress to the lock: the effect's own wait lets one stopping thread
// through per run, and a second one would hang there.
void CPlayEngine::Key(int key) {
    if (key == PLAYKEY_RUN) {
        if (EndStage()) return;
        while (!TryLock())
            if (EndStage()) return;
        if (m_nState.load() == PLAY_IDLE) m_bRun.store(1);
        m_Lock.unlock();
        m_bKeyed.store(1);
        m_hEvent.Set();
    } else if (key == PLAYKEY_STOP) {
        m_pEffect->Effect::Stop();
        m_bRun.store(0);
        while (!TryLock())
            m_pEffect->Effect::Stop();
        // Text that waited to be typed on shows whole.
        if (m_nState.load() == PLAY_TYPING && m_pPage.load())
            m_pEffect->ShowAllTyped(*m_pPage.load());
        StopTimers();
        m_nState.store(PLAY_IDLE);
        m_Lock.unlock();
    } else if (key == PLAYKEY_ERASE) {
        const UstPlayList* list = m_pPlayList.load();
        if (m_bRun.load() && list && list->m_nMode.load() == PLAYLIST_AUTO) return;
        StopPlay();
        ClearOutput();
    }
}

bool CPlayEngine::TryLock() {
    if (m_Lock.try_lock()) return true;
    std::this_thread::sleep_for(KEY_POLL);
    return false;
}

void CPlayEngine::StopPlay() {
    Key(PLAYKEY_STOP);
    m_pPage.store(nullptr);
    m_bSinglePage.store(0);
    m_nState.store(PLAY_IDLE);
}

bool CPlayEngine::IsBlinking() const {
    return m_pEffect && m_pEffect->m_bBlinking.load() != 0;
}

bool CPlayEngine::IsLive() const {
    return m_pEffect && m_pEffect->m_bAnimating.load() != 0;
}

void CPlayEngine::Faster() {
    orv::Faster(m_pPage.load());
}

void CPlayEngine::Slower() {
    orv::Slower(m_pPage.load());
}

void CPlayEngine::ResetPlay() {
    m_bSinglePage.store(0);
    m_nState.store(PLAY_IDLE);
}

void CPlayEngine::GetBufferInfo(UstBufferInfo& out) const {
    out.pBits = m_pBufferA.data();
    out.rc = {0, 0, m_nWidth, m_nHeight};
}

void CPlayEngine::ClearOutput() {
    std::lock_guard lock(m_Lock);
    m_pAirPage.store(nullptr);
    StopTimers();
    m_pEffect->Clear();
}

int CPlayEngine::NextIndex(int from, int& wrapped, int useDiscarded) const {
    const UstPlayList* list = m_pPlayList.load();
    if (!list || list->Count() == 0) {
        wrapped = 1;
        return -1;
    }
    return NextPlayIndex(*list, from, wrapped, useDiscarded);
}

void CPlayEngine::RenderPage(CPageManager* page) {
    if (!page || m_pBufferA.empty()) return;
    m_pAirPage.store(nullptr);
    page->m_data.TakeRow();
    std::fill_n(m_pBufferA.data(), m_pBufferA.size(), 0u);
    std::fill_n(m_pBufferB.data(), m_pBufferB.size(), 0u);
    if (!page->IsScrollPage()) Effect::HideTyping(*page);
    StopTimers();
    const bool timers = HasRunningTimers(*page);
    page->DrawForPlay(m_pBufferA.data(), page->HasBlinkObject() ? m_pBufferB.data() : nullptr,
                      m_nWidth, m_nHeight, !timers);
    if (timers) StartTimers(page, page->HasBlinkObject());
}

void CPlayEngine::BeginScroll(CPageManager* page) {
    page->BeginScroll(m_nWidth, m_nHeight);
}

void CPlayEngine::EndScroll(CPageManager* page) {
    page->EndScroll();
}

void CPlayEngine::Post(int state, int param) {
    if (m_pFrame) m_pFrame->PostPlayState(state, param);
}

void CPlayEngine::SetMode(int mode) {
    if (m_pFrame) m_pFrame->SetPlayMode(mode);
}

bool CPlayEngine::Running() const {
    return m_bRun.load() && !m_bExit.load();
}

// One step of a single page: from the state it rests in to the next one
// where it waits for the operator.
void CPlayEngine::StepSingle() {
    CPageManager* page = m_pPage.load();
    int* request = page ? RequestWords(page->m_effect) : nullptr;
    switch (m_nState.load()) {
        case PLAY_IDLE:
            // A Stop that came between the Run and this step cancelled it.
            if (!page || !m_bRun.load()) return;
            m_nState.store(PLAY_LOAD);
            [[fallthrough]];
        case PLAY_LOAD:
            Post(PLAY_LOAD, 0);
            m_nState.store(PLAY_IN);
            [[fallthrough]];
        case PLAY_IN: {
            if (!page) return;
            const bool scroll = page->IsScrollPage();
            if (scroll) BeginScroll(page);
            RenderPage(page);
            Post(PLAY_IN, 0);
            m_pEffect->Run(request, 0, page);
            if (scroll) {
                EndScroll(page);
                Post(PLAY_GONE, 1);
                m_nState.store(PLAY_IDLE);
                m_bRun.store(0);
            } else if (TypeOnAir(page, true)) {
                SingleOnAir(page, request);
            }
            return;
        }
        case PLAY_TYPING:
            if (page && m_pEffect->TypeStep(*page)) SingleOnAir(page, request);
            return;
        case PLAY_BLINK:
            Post(PLAY_BLINK, 0);
            m_pEffect->RunLive(0, page, 1);
            m_nState.store(PLAY_OUT);
            return;
        case PLAY_LIVE:
            Post(PLAY_LIVE, 0);
            m_pEffect->RunLive(1, page, 0);
            m_nState.store(PLAY_OUT);
            return;
        case PLAY_OUT:
            Post(PLAY_OUT, 0);
            m_pAirPage.store(nullptr);
            StopTimers();
            if (request && CTransitionDriver::HasOutStage(request))
                m_pEffect->Run(request, 2, nullptr);
            Post(PLAY_GONE, 1);
            m_nState.store(PLAY_IDLE);
            m_bRun.store(0);
            return;
        default:
            return;
    }
}

void CPlayEngine::SingleOnAir(CPageManager* page, int* request) {
    m_pAirPage.store(page);
    if (page->HasAnimation() || page->HasBlinkObject()) {
        m_nState.store(page->HasAnimation() ? PLAY_LIVE : PLAY_BLINK);
        Post(PLAY_ON, 0);
        return;
    }
    Post(PLAY_ON, 0);
    m_nState.store(PLAY_OUT);
    if (!CTransitionDriver::HasOutStage(request)) {
        Post(PLAY_GONE, 0);
        m_nState.store(PLAY_IDLE);
        m_bRun.store(0);
    }
}

bool CPlayEngine::TypeOnAir(CPageManager* page, bool byOperator) {
    if (!page->HasTypingObject()) return true;
    if (byOperator && page->m_typing.nMode == 0) {
        m_nState.store(PLAY_TYPING);
        Post(PLAY_ON, 0);
        return false;
    }
    m_pEffect->RunTyping(*page);
    return true;
}

// The list machine: the single page's stages over the list's pages, with
// the index as the parameter of every state.
void CPlayEngine::StepList() {
    UstPlayList* list = m_pPlayList.load();
    if (!list) {
        m_nState.store(PLAY_IDLE);
        return;
    }
    const int state = m_nState.load();
    // A stage left behind by the single page (a Stop from another thread in
    // between) finds no list page in hand.
    if (!m_pInHand && state != PLAY_IDLE && state != PLAY_LOAD) m_nState.store(PLAY_IDLE);
    switch (m_nState.load()) {
        case PLAY_IDLE:
            if (!m_bRun.load() || list->m_nCurrent.load() >= list->Count()) break;
            m_nState.store(PLAY_LOAD);
            [[fallthrough]];
        case PLAY_LOAD: {
            int index = std::max(0, list->m_nCurrent.load());
            while (index < list->Count() && !list->m_bIgnoreDiscard.load() &&
                   list->IsDiscarded(index))
                ++index;
            if (index >= list->Count()) {
                m_nState.store(PLAY_END);
                break;
            }
            m_nInHand = index;
            m_pInHand = list->m_pPages[static_cast<size_t>(index)];
            Post(PLAY_LOAD, index);
            list->m_nCurrent.store(index + 1);
            m_nState.store(PLAY_IN);
            ListIn(*list, m_pInHand);
            break;
        }
        case PLAY_IN:
            ListIn(*list, m_pInHand);
            break;
        case PLAY_BLINK:
        case PLAY_LIVE: {
            const bool blink = m_nState.load() == PLAY_BLINK;
            Post(blink ? PLAY_BLINK : PLAY_LIVE, m_nInHand);
            // Here the animations play on until the operator ends them.
            m_pEffect->RunLive(blink ? 0 : 1, m_pInHand, 1);
            m_nState.store(PLAY_OUT);
            break;
        }
        case PLAY_OUT: {
            SetMode(2);
            Post(PLAY_OUT, m_nInHand);
            m_pAirPage.store(nullptr);
            int* request = RequestWords(m_pInHand->m_effect);
            StopTimers();
            if (CTransitionDriver::HasOutStage(request)) m_pEffect->Run(request, 2, nullptr);
            ListPageGone(*list, m_nInHand);
            SetMode(1);
            break;
        }
        default:
            break;
    }
    if (!m_bRun.load()) m_nState.store(PLAY_IDLE);
    if (m_nState.load() == PLAY_IDLE) Post(PLAY_IDLE, list->m_nCurrent.load());
}

void CPlayEngine::ListIn(UstPlayList& list, CPageManager* page) {
    const int index = m_nInHand;
    int* request = RequestWords(page->m_effect);
    const bool scroll = page->IsScrollPage();
    SetMode(2);
    if (scroll) BeginScroll(page);
    RenderPage(page);
    Post(PLAY_IN, index);
    m_pEffect->Run(request, 0, page);
    if (!scroll) TypeOnAir(page, false);
    if (scroll) {
        EndScroll(page);
        ListPageGone(list, index);
    } else if (page->HasAnimation() || page->HasBlinkObject()) {
        m_nState.store(page->HasAnimation() ? PLAY_LIVE : PLAY_BLINK);
        Post(PLAY_ON, index);
    } else {
        m_pAirPage.store(page);
        Post(PLAY_ON, index);
        m_nState.store(PLAY_OUT);
        // The page stays on air; the list moves on to the next one.
        if (!CTransitionDriver::HasOutStage(request)) ListPageGone(list, index);
    }
    SetMode(1);
}

void CPlayEngine::ListPageGone(UstPlayList& list, int index) {
    Post(PLAY_GONE, index);
    m_nInHand = index + 1;
    m_nState.store(list.m_nCurrent.load() < list.Count() ? PLAY_LOAD : PLAY_END);
}

}  // namespace orv
