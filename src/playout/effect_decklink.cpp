#include "playout/effect_decklink.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "playout/effect_table.h"
#include "project/page_manager.h"

namespace orv {

EffectDecklink::EffectDecklink(int channel, CGBoard* board, uint32_t* bufferA, uint32_t* bufferB,
                               int width, int height)
    : Effect(board, bufferA, bufferB, width, height) {
    if (!board) return;
    m_pChannel = std::make_unique<CBoardChannel>(channel, board);
    const UstSize canvas = board->GetCanvasSize();
    m_nCanvasWidth = canvas.cx;
    m_nCanvasHeight = canvas.cy;
}

// The workers run the base's members: they end before this object does.
EffectDecklink::~EffectDecklink() {
    EndWorker(WORKER_STRIP);
}

void EffectDecklink::Run(int* request, int phase, CPageManager* page) {
    const int number =
        request ? LoadRequestWord(request, phase != 0 ? REQ_OUT_EFFECT : REQ_IN_EFFECT) : -1;
    const bool drawable = CanDraw() && m_nWidth >= MIN_WIDTH && m_nHeight >= MIN_HEIGHT;
    if (!m_pChannel || !FindEffectRow(number) || !drawable) {
        m_hDone.Set();
        return;
    }
    const bool keepTimes = m_Stats.bKeepTimes;
    m_Stats = {};
    m_Stats.bKeepTimes = keepTimes;
    if (number == EFFECT_ROLL || number == EFFECT_CRAWL)
        RunScroll(number, request, page);
    else
        RunTransition(request, phase);
}

// A transition that has begun runs to its end whatever the flags say; the
// last capture makes the final picture reach both fields, and after an out
// effect the key goes back to full once the empty frame is safely out.
void EffectDecklink::RunTransition(int* request, int phase) {
    m_bRunning.store(1, std::memory_order_relaxed);
    TakePipeline();
    CallRoutine(LoadRequestWord(request, phase != 0 ? REQ_OUT_EFFECT : REQ_IN_EFFECT), request,
                phase);
    if (m_nFieldLoop) {
        m_pChannel->WaitFrame();
        Capture();
    }
    if (phase == 2) {
        if (m_pPipeline) m_pPipeline->WaitFrames();
        m_pChannel->SetKeyLevel(255);
    }
    EndRun();
}

// Whatever the phase, a scroll page runs its pass: it has no out stage.
void EffectDecklink::RunScroll(int number, int* request, CPageManager* page) {
    if (!page) {
        m_hDone.Set();
        return;
    }
    m_pPage = page;
    const int count = page->GetStripCount(&m_nRollPad, m_nWidth, m_nHeight);
    if (count < 1) {
        m_hDone.Set();
        return;
    }
    m_nStrips = count + 1;
    m_bRunning.store(1, std::memory_order_relaxed);
    m_nStrip.store(0, std::memory_order_relaxed);
    m_nPrepared.store(0, std::memory_order_relaxed);
    TakePipeline();
    if (m_nStrips > 2) StartWorker(WORKER_STRIP);
    CallRoutine(number, request, 0);
    EndRun();
}

void EffectDecklink::EndRun() {
    m_bRunning.store(0, std::memory_order_relaxed);
    m_hDone.Set();
}

void EffectDecklink::CallRoutine(int number, int* request, int phase) {
    const UstEffectRow* row = FindEffectRow(number);
    if (!row) return;
    using Routine = void (EffectDecklink::*)(int*, int, const int*);
    static constexpr Routine BY_FAMILY[] = {
        &EffectDecklink::RollEffect,     &EffectDecklink::CrawlEffect,
        &EffectDecklink::CutEffect,      &EffectDecklink::FadeEffect,
        &EffectDecklink::DissolveEffect, &EffectDecklink::PushEffect,
        &EffectDecklink::BlindsEffect,   &EffectDecklink::CheckerboardEffect,
        &EffectDecklink::CombEffect,     &EffectDecklink::RandomBarsEffect,
        &EffectDecklink::WipeEffect,     &EffectDecklink::BoxEffect,
        &EffectDecklink::PlusEffect,     &EffectDecklink::WedgeEffect,
        &EffectDecklink::WheelEffect,    &EffectDecklink::SplitEffect};
    static_assert(std::size(BY_FAMILY) == static_cast<size_t>(EEffectFamily::SPLIT) + 1);
    (this->*BY_FAMILY[static_cast<size_t>(row->eFamily)])(request, phase, row->steps.data());
}

void EffectDecklink::TakePipeline() {
    m_pPipeline = m_pBoard->GetPipeline();
    m_nFieldLoop = m_pPipeline ? m_pPipeline->IsInterlaced() : 0;
}

// The step loop that every routine of the table varies: a frame, then one
// sub-step per field, the last one clipped to what is left.
void EffectDecklink::StepLoop(const UstStepPlan& plan, const SubStep& write) {
    if (plan.bStartDark) m_pChannel->SetKeyLevel(0);
    int step = std::max(1, plan.nStep);
    int progress = 0;
    while (progress < plan.nTotal) {
        m_pChannel->WaitFrame();
        for (int sub = 0; sub <= m_nFieldLoop && progress < plan.nTotal; ++sub) {
            if (step >= plan.nTotal - progress) step = plan.nTotal - progress;
            TimedSubStep([&] {
                if (plan.bLevelFirst) LevelFor(plan, progress);
                if (sub == 0) BeginCapture();
                WriteHoldingCanvas([&] { write(progress, step); });
                if (!plan.bLevelFirst) LevelFor(plan, progress);
                if (sub == 0) Capture();
            });
            progress += step;
        }
    }
}

// A sub-step's thousands of primitives would each lock the canvas on their
// own; held once, the output copies whole sub-steps, never a part of one.
void EffectDecklink::WriteHoldingCanvas(const std::function<void()>& write) {
    std::unique_lock<std::recursive_mutex> hold;
    if (m_pPipeline) hold = m_pPipeline->LockCanvas();
    write();
}

void EffectDecklink::LevelFor(const UstStepPlan& plan, int progress) {
    if (!plan.bFade) return;
    const int level = static_cast<int>(255.0 * progress / plan.nTotal);
    m_pChannel->SetKeyLevel(plan.nPhase == 0 ? level : 255 - (level & 255));
}

void EffectDecklink::TimedSubStep(const std::function<void()>& write) {
    const auto start = std::chrono::steady_clock::now();
    write();
    const int64_t ns = std::chrono::duration_cast<std::chrono::nanoseconds>(
                           std::chrono::steady_clock::now() - start)
                           .count();
    ++m_Stats.nSubSteps;
    m_Stats.nLongestSubStepNs = std::max(m_Stats.nLongestSubStepNs, ns);
    if (m_Stats.bKeepTimes) m_Stats.subStepTimes.push_back(ns);
}

// The first sub-step's picture goes into the field buffer, the second stays
// in the canvas: each field of the frame shows its own moment.
void EffectDecklink::Capture() {
    if (!m_nFieldLoop || !m_pPipeline) return;
    m_pPipeline->CaptureFieldRows(std::max(m_nCaptureFrom, 0), std::numeric_limits<int>::max());
    m_nCaptureFrom = -1;
    ++m_Stats.nCaptures;
}

void EffectDecklink::BeginCapture() {
    m_nCaptureFrom = m_nFieldLoop && m_pPipeline ? 0 : -1;
}

// Rows a routine has finished for this sub-step go into the field buffer
// at once, while what it just wrote of them is still in this core's caches;
// the capture at the end of the sub-step takes only the rows below.
void EffectDecklink::CaptureRowsAbove(int row) {
    if (m_nCaptureFrom < 0 || row <= m_nCaptureFrom) return;
    m_pPipeline->CaptureFieldRows(m_nCaptureFrom, row);
    m_nCaptureFrom = row;
}

// The flag is looked at right after it was cleared, so Stop waits only for
// a run that another thread began in between: the operator's Stop never
// blocks on an ordinary transition.
void EffectDecklink::Stop() {
    Effect::Stop();
    if (m_bRunning.load(std::memory_order_relaxed) != 0) m_hDone.Wait();
}

EffectDecklink::UstPen EffectDecklink::PenFor(int phase) {
    int x0 = 0, y0 = 0;
    m_pChannel->GetOrigin(x0, y0);
    return {this, m_pChannel.get(), phase == 0 ? m_pBufferA : nullptr, m_nWidth, x0, y0};
}

EffectDecklink::UstStepPlan EffectDecklink::PlanFor(int* request, int phase, const int* steps) {
    const UstPhaseRequest r = ReadPhaseRequest(request, phase);
    UstStepPlan plan;
    plan.nPhase = phase;
    plan.bFade = r.bFade != 0;
    plan.bStartDark = plan.bFade && phase == 0;
    plan.nStep = steps[ClampSpeed(r.nSpeed) - 1];
    return plan;
}

namespace {

// Targets are the origin plus a place in the frame, so they rarely pass one
// canvas size; the pens run this a few thousand times a sub-step, and a
// division each time would cost more than the pixels.
int Wrap(int v, int size) {
    if (v >= 0 && v < size) return v;
    if (v >= size && v < 2 * size) return v - size;
    return (v % size + size) % size;
}

}  // namespace

void EffectDecklink::UstPen::Rect(int x, int y, int w, int h) const {
    const int tx = Wrap(x0 + x, pEngine->m_nCanvasWidth);
    const int ty = Wrap(y0 + y, pEngine->m_nCanvasHeight);
    if (pSource)
        pChannel->CopyRect(tx, ty, nStride, x, y, w, h, pSource);
    else
        pChannel->FillRect(tx, ty, w, h, 0);
}

void EffectDecklink::UstPen::Row(int x1, int x2, int y) const {
    const int tx = Wrap(x0 + x1, pEngine->m_nCanvasWidth);
    const int ty = Wrap(y0 + y, pEngine->m_nCanvasHeight);
    if (pSource)
        pChannel->CopyLine(tx, ty, tx + x2 - x1, ty, nStride, x1, y, pSource);
    else
        pChannel->FillLine(tx, ty, tx + x2 - x1, ty, 0);
}

void EffectDecklink::UstPen::Column(int x, int y1, int y2) const {
    const int tx = Wrap(x0 + x, pEngine->m_nCanvasWidth);
    const int ty = Wrap(y0 + y1, pEngine->m_nCanvasHeight);
    if (pSource)
        pChannel->CopyLine(tx, ty, tx, ty + y2 - y1, nStride, x, y1, pSource);
    else
        pChannel->FillLine(tx, ty, tx, ty + y2 - y1, 0);
}

void EffectDecklink::UstPen::BandOfColumns(const std::vector<int>& columns, int top) const {
    const int w = pEngine->m_nWidth, h = pEngine->m_nHeight;
    const int rows = std::min(nBandRows, h - top);
    if (pSource && !pBands) {
        for (int x : columns)
            Column(x, top, top + rows - 1);
        return;
    }
    const int tx = Wrap(x0, pEngine->m_nCanvasWidth);
    const int ty = Wrap(y0 + top, pEngine->m_nCanvasHeight);
    const int count = static_cast<int>(columns.size());
    if (!pSource) return pChannel->FillColumns(tx, ty, rows, columns.data(), count, 0);
    const uint32_t* block = pBands + static_cast<size_t>(top) * w;
    // The next band is fetched only if it has this one's rows: in a shorter
    // last band the pieces lie elsewhere.
    const uint32_t* next = top + 2 * rows <= h ? block + static_cast<size_t>(rows) * w : nullptr;
    pChannel->CopyColumns(tx, ty, rows, columns.data(), count, block, next);
}

}  // namespace orv
