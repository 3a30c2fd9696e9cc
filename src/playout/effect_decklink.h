#pragma once
// The transition engine over a board: Run chooses the routine of the
// request's row, and every routine is a loop of frames, each frame one
// sub-step on progressive output and two on interlaced output, where the
// first sub-step's picture is captured as the first field so that each field
// shows its own moment.

#include <functional>
#include <vector>

#include "board/decklink_pipeline.h"
#include "playout/effect.h"
#include "playout/effect_request.h"

namespace orv {

class EffectDecklink : public Effect {
public:
    // Frames smaller than this are refused: the cells of the smallest
    // patterns (a sixtieth of the width, a twenty-fourth of the height)
    // would be empty.
    static constexpr int MIN_WIDTH = 60, MIN_HEIGHT = 24;

    EffectDecklink(int channel, CGBoard* board, uint32_t* bufferA, uint32_t* bufferB, int width,
                   int height);
    ~EffectDecklink() override;

    void Run(int* request, int phase, CPageManager* page) override;
    void RunLive(int kind, CPageManager* page, int endless) override;
    void RunBlink(int* request, CPageManager* page, int endless) override;
    void Stop() override;

    // Signalled at the end of every Run; nothing waits for it but a Stop
    // that met a run just starting.
    CAutoEvent m_hDone;
    CDecklinkPipeline* m_pPipeline = nullptr;
    // The field buffer stays inside the pipeline: captures go through it.
    uint32_t* m_pFieldBuffer = nullptr;
    int32_t m_nFieldLoop = 0;  // 1 on interlaced output

    // The routines of the table, each (request, phase, steps of its row).
    void CutEffect(int* request, int phase, const int* steps);
    void FadeEffect(int* request, int phase, const int* steps);
    void DissolveEffect(int* request, int phase, const int* steps);
    void PushEffect(int* request, int phase, const int* steps);
    void BlindsEffect(int* request, int phase, const int* steps);
    void CheckerboardEffect(int* request, int phase, const int* steps);
    void CombEffect(int* request, int phase, const int* steps);
    void RandomBarsEffect(int* request, int phase, const int* steps);
    void WipeEffect(int* request, int phase, const int* steps);
    void BoxEffect(int* request, int phase, const int* steps);
    void PlusEffect(int* request, int phase, const int* steps);
    void WedgeEffect(int* request, int phase, const int* steps);
    void WheelEffect(int* request, int phase, const int* steps);
    void SplitEffect(int* request, int phase, const int* steps);
    void RollEffect(int* request, int phase, const int* steps);
    void CrawlEffect(int* request, int phase, const int* steps);

private:
    // One run of the step loop: what the routine decided before the first
    // frame.
    struct UstStepPlan {
        int nPhase = 0;
        bool bFade = false;
        bool bStartDark = false;   // SetKeyLevel(0) before the first frame
        bool bLevelFirst = false;  // the level goes out before the write
        int nStep = 1;
        int nTotal = 0;
    };
    // Writes the next `step` units at progress p.
    using SubStep = std::function<void(int p, int step)>;

    void RunTransition(int* request, int phase);
    void RunScroll(int number, int* request, CPageManager* page);
    void CallRoutine(int number, int* request, int phase);
    void TakePipeline();
    void StepLoop(const UstStepPlan& plan, const SubStep& write);
    void LevelFor(const UstStepPlan& plan, int progress);
    void TimedSubStep(const std::function<void()>& write);
    void WriteHoldingCanvas(const std::function<void()>& write);
    void Capture();
    void BeginCapture();
    // For a routine that writes a sub-step from the top down: the rows
    // above `row` are final for this sub-step.
    void CaptureRowsAbove(int row);
    void EndRun();

    // The first view row not yet captured in a sub-step that captures, -1
    // in the others.
    int m_nCaptureFrom = -1;

    // What a routine writes, phase 0 from buffer A, phase 2 zeros, relative
    // to the origin (x0, y0) taken at its start.
    struct UstPen {
        EffectDecklink* pEngine;
        CBoardChannel* pChannel;
        const uint32_t* pSource;  // null: erase
        int nStride, x0, y0;
        // The page again in bands of nBandRows rows, each band column by
        // column (see PageInColumnBands), for BandOfColumns; without it
        // the pieces come from the page line by line.
        const uint32_t* pBands = nullptr;
        int nBandRows = 0;
        void Rect(int x, int y, int w, int h) const;
        void Row(int x1, int x2, int y) const;
        void Column(int x, int y1, int y2) const;
        // The columns' pieces in the band of nBandRows rows from row top,
        // in one call to the board.
        void BandOfColumns(const std::vector<int>& columns, int top) const;
    };
    UstPen PenFor(int phase);
    // The plan of an ordinary routine: the step and fade of the phase's
    // fields, the key dark before the first frame of a fade in.
    UstStepPlan PlanFor(int* request, int phase, const int* steps);

    void CutRoutine(int* request, int phase, bool alwaysFade);
    void CutIn(bool fade, int stepLevel);
    void CutOut(bool fade, int stepLevel);

    // The sub-step routines of the families that use the list of the
    // frame's border pixels.
    void SpokeEffect(const UstStepPlan& plan, int spokes, bool wedge);
    void Trapezoid(const UstPen& pen, int x, int dir, int n, int top, int bottom);
    void BoxInSubStep(const UstPen& pen, int p, int step, int total, double q, int& c);
    void BoxOutSubStep(const UstPen& pen, int p, int step, int total, double q, int& c);
    void CheckerCells(const UstPen& pen, int cell, bool across, bool sameParity, int p, int step);

    // Roll and crawl: where a pass stands. The unit is the frame's height
    // for a roll and its width for a crawl; (x, y) is the origin.
    struct UstScroll {
        bool bCrawl = false;
        int nUnit = 0;
        int64_t nTotal = 0, p = 0;
        int x = 0, y = 0;
        const uint32_t* pSource = nullptr;
        int nLateStrip = -1;  // the last strip counted as late
    };
    void ScrollRoutine(int* request, const int* steps, bool crawl);
    void ScrollPass(int* request, const int* steps, UstScroll& s);
    void ScrollSubStep(int* request, const int* steps, UstScroll& s);
    void ScrollPiece(UstScroll& s, int from, int rows);
    void FollowStrip(UstScroll& s);
    void WaitBetweenPasses(int64_t ms);
};

}  // namespace orv
