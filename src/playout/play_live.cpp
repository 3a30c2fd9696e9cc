// The live stage: a page with animations stays on air with every frame
// composed in ordinary memory (the page, then each animation over it) and
// written to the canvas whole right after WaitFrame. A feeder thread reads
// the files into rings of four frames, one frame per animation per output
// frame; the output never waits for it.
#include <algorithm>
#include <chrono>
#include <cstring>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "playout/effect_decklink.h"
#include "project/page_manager.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr int LIVE_RING_BLOCKS = 4;
constexpr int LIVE_FADE_STEP = 30;
constexpr int LIVE_INTERPOLATION = 2;
// An object far larger than the frame is not scaled at its whole size for
// the sliver that shows.
constexpr int64_t LIVE_MAX_TARGET_FRAMES = 4;

// One animation as the drawing thread sees it. `frame` holds the last frame
// taken from the ring, scaled to the whole target: the ring's block goes
// back to the feeder at once, and a late feeder leaves this to stand again.
struct UstLiveAnim {
    int nOpacity = 255;
    int nShown = 0;
    int nRunsLeft = 0;
    bool bFinished = false;
    bool bHasFrame = false;
    UstRect rcFull;    // the whole target, in frame pixels
    UstRect rcTarget;  // the part of it inside the frame
    UstRect rcSource;  // that part within `frame`
    std::vector<uint32_t> frame;
};

}  // namespace

class CLiveStage {
public:
    CLiveStage(EffectDecklink& e, CPageManager& page, int endless)
        : m_e(e), m_page(page), m_bEndless(endless != 0) {}
    ~CLiveStage() { Free(); }
    CLiveStage(const CLiveStage&) = delete;
    CLiveStage& operator=(const CLiveStage&) = delete;

    void Run();

private:
    bool Open();
    bool OpenOne(const UstAniPlay& entry);
    void Prime();
    void FadeIn();
    void MainLoop();
    void FadeOut();
    void StartCompose() {
        if (m_e.m_pTicker) m_e.m_pTicker->TickInMemory();
        std::memcpy(m_compose.data(), m_e.m_pBufferA, m_compose.size() * 4);
    }
    // Takes the next frame from the ring; false when it was empty. The fade
    // in holds the first frame: it gives the block back only from the main
    // loop on.
    bool TakeFrame(size_t i, bool commit);
    void Blend(const UstLiveAnim& a, int opacity);
    void Show();
    bool AnyActive() const;
    void Free();

    EffectDecklink& m_e;
    CPageManager& m_page;
    bool m_bEndless;
    int m_x = 0, m_y = 0;
    std::vector<UstLiveAnim> m_anims;
    std::vector<uint32_t> m_compose;
};

void EffectDecklink::RunLive(int kind, CPageManager* page, int endless) {
    if (!page) return;
    if (kind == 0) {
        RunBlink(RequestWords(page->m_effect), page, endless);
        return;
    }
    if (!m_pChannel || !CanDraw()) return;
    CLiveStage stage(*this, *page, endless);
    stage.Run();
}

void CLiveStage::Run() {
    m_e.m_LiveStats.nLiveFrames = m_e.m_LiveStats.nEmptyRings = 0;
    m_e.m_bAnimating.store(1, std::memory_order_relaxed);
    m_e.m_pChannel->GetOrigin(m_x, m_y);
    if (Open()) {
        m_compose.assign(static_cast<size_t>(m_e.m_nWidth) * m_e.m_nHeight, 0u);
        Prime();
        m_e.StartWorker(WORKER_ANIMATION);
        m_e.m_pPipeline = m_e.m_pBoard->GetPipeline();
        // One picture per frame, not two fields of different moments.
        if (m_e.m_pPipeline) m_e.m_pPipeline->m_bFullFrame.store(1);
        FadeIn();
        MainLoop();
        FadeOut();
        if (m_e.m_pPipeline) m_e.m_pPipeline->m_bFullFrame.store(0);
    }
    Free();
}

bool CLiveStage::Open() {
    std::vector<UstAniPlay> list;
    m_page.CollectAnimations(list, m_e.m_nWidth, m_e.m_nHeight);
    for (const UstAniPlay& entry : list)
        OpenOne(entry);
    m_e.m_nAnimCount = static_cast<int32_t>(m_anims.size());
    m_e.m_pAnimActive = std::make_unique<std::atomic<int32_t>[]>(m_anims.size());
    for (size_t i = 0; i < m_anims.size(); ++i)
        m_e.m_pAnimActive[i].store(1);
    return AnyActive();
}

// What cannot play drops out silently: no source for the file, or nothing
// of the object inside the frame.
bool CLiveStage::OpenOne(const UstAniPlay& entry) {
    auto player =
        m_e.m_fnOpenPlayer ? m_e.m_fnOpenPlayer(entry.strFile) : CreateMediaPlayer(entry.strFile);
    if (!player || !player->IsOpen()) return false;
    const UstMediaInfo info = *player->GetInfo();
    const UstRect full = entry.rcTarget;
    const UstRect target{std::max(full.left, 0), std::max(full.top, 0),
                         std::min(full.right, m_e.m_nWidth), std::min(full.bottom, m_e.m_nHeight)};
    const int64_t area = int64_t{full.Width()} * full.Height();
    if (info.nFrames < 1 || info.nWidth < 1 || info.nHeight < 1 || target.Width() <= 0 ||
        target.Height() <= 0 || area > LIVE_MAX_TARGET_FRAMES * m_e.m_nWidth * m_e.m_nHeight)
        return false;
    UstLiveAnim a;
    a.rcFull = full;
    a.rcTarget = target;
    // Where the object's left or top lies off the frame, the picture is
    // taken from as far inside it.
    a.rcSource = Offset(target, -full.left, -full.top);
    a.nRunsLeft = entry.pWords ? entry.pWords->nRepeat : 0;
    a.frame.assign(static_cast<size_t>(area), 0u);
    m_anims.push_back(std::move(a));
    m_e.m_pAnimRing.push_back(
        std::make_unique<FrameRing>(player->GetFrameSize(), LIVE_RING_BLOCKS));
    m_e.m_pAnimPlayer.push_back(std::move(player));
    m_e.m_pAnimFrame.push_back(0);
    m_e.m_pAnimGood.push_back(-1);
    return true;
}

// The only reads from disk on the drawing thread.
void CLiveStage::Prime() {
    for (int round = 0; round < LIVE_RING_BLOCKS; ++round)
        for (int i = 0; i < m_e.m_nAnimCount; ++i)
            m_e.StepAnimation(i);
}

bool CLiveStage::TakeFrame(size_t i, bool commit) {
    FrameRing& ring = *m_e.m_pAnimRing[i];
    const uint8_t* block = ring.NextReadBlock();
    if (!block) return false;
    const UstMediaInfo& info = *m_e.m_pAnimPlayer[i]->GetInfo();
    UstLiveAnim& a = m_anims[i];
    const auto* pixels = reinterpret_cast<const uint32_t*>(block);
    const UstRect dst{0, 0, a.rcFull.Width(), a.rcFull.Height()};
    if (dst.Width() == info.nWidth && dst.Height() == info.nHeight)
        std::memcpy(a.frame.data(), pixels, a.frame.size() * 4);
    else
        ScalePixelRect(a.frame.data(), dst, pixels, {0, 0, info.nWidth, info.nHeight},
                       LIVE_INTERPOLATION);
    if (commit) ring.CommitRead();
    a.bHasFrame = true;
    return true;
}

void CLiveStage::Blend(const UstLiveAnim& a, int opacity) {
    if (!a.bHasFrame || opacity <= 0) return;
    const int stride = a.rcFull.Width();
    if (opacity >= 255)
        BlendPixelRect(m_compose.data(), m_e.m_nWidth, a.rcTarget, a.frame.data(), stride,
                       a.rcSource);
    else
        BlendPixelRectOpacity(m_compose.data(), m_e.m_nWidth, a.rcTarget, a.frame.data(), stride,
                              a.rcSource, opacity);
}

void CLiveStage::Show() {
    m_e.m_pChannel->WaitFrame();
    m_e.m_pChannel->CopyRect(m_x, m_y, m_e.m_nWidth, 0, 0, m_e.m_nWidth, m_e.m_nHeight,
                             m_compose.data());
    ++m_e.m_LiveStats.nLiveFrames;
}

void CLiveStage::FadeIn() {
    for (int level = 0; level < 255; level += LIVE_FADE_STEP) {
        StartCompose();
        for (size_t i = 0; i < m_anims.size(); ++i) {
            TakeFrame(i, false);
            Blend(m_anims[i], level);
        }
        Show();
    }
}

bool CLiveStage::AnyActive() const {
    return std::any_of(m_anims.begin(), m_anims.end(),
                       [](const UstLiveAnim& a) { return !a.bFinished; });
}

// A finished animation fades out while the others play on. A frame that
// the feeder has not read yet leaves the last one standing.
void CLiveStage::MainLoop() {
    while (m_e.m_bAnimating.load(std::memory_order_relaxed) && AnyActive()) {
        const auto start = std::chrono::steady_clock::now();
        StartCompose();
        for (size_t i = 0; i < m_anims.size(); ++i) {
            UstLiveAnim& a = m_anims[i];
            if (a.bFinished) {
                a.nOpacity = std::max(0, a.nOpacity - LIVE_FADE_STEP);
                Blend(a, a.nOpacity);
                continue;
            }
            if (!TakeFrame(i, true)) {
                ++m_e.m_LiveStats.nEmptyRings;
                Blend(a, 255);
                continue;
            }
            Blend(a, 255);
            a.nShown = (a.nShown + 1) % std::max(1, m_e.m_pAnimPlayer[i]->GetInfo()->nFrames);
            if (a.nShown == 0 && !m_bEndless && --a.nRunsLeft < 0) {
                a.bFinished = true;
                m_e.m_pAnimActive[i].store(0, std::memory_order_relaxed);
            }
        }
        const int64_t ns = std::chrono::duration_cast<std::chrono::nanoseconds>(
                               std::chrono::steady_clock::now() - start)
                               .count();
        if (m_e.m_LiveStats.bKeepTimes) m_e.m_LiveStats.composeTimes.push_back(ns);
        m_e.m_hAnimEvent->Set();
        Show();
    }
}

// Run and Stop end the stage gently: everything still showing fades
// together, and the last frame is the bare page of buffer A.
void CLiveStage::FadeOut() {
    for (int level = 255; level >= 0; level -= LIVE_FADE_STEP) {
        StartCompose();
        bool drawn = false;
        for (UstLiveAnim& a : m_anims) {
            if (a.nOpacity <= 0) continue;
            a.nOpacity = std::max(0, a.nOpacity - LIVE_FADE_STEP);
            Blend(a, a.nOpacity);
            drawn = true;
        }
        if (drawn) Show();
    }
}

void CLiveStage::Free() {
    m_e.m_bAnimating.store(0, std::memory_order_relaxed);
    m_e.EndWorker(WORKER_ANIMATION);
    m_e.m_pAnimRing.clear();
    m_e.m_pAnimPlayer.clear();
    m_e.m_pAnimFrame.clear();
    m_e.m_pAnimActive.reset();
    m_e.m_pAnimGood.clear();
    m_e.m_nAnimCount = 0;
}

}  // namespace orv
