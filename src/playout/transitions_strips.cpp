// The dissolve and the strips and bars: patterns of cells, bands and lines
// that the page fills in, each sub-step only the pixels it reveals.
#include <cstdint>
#include <numeric>
#include <vector>

#include "playout/effect_decklink.h"
#include "playout/effect_table.h"

namespace orv {

namespace {

// Cells of side `cell` over `length`, the last one narrower when the length
// is not a multiple.
int CellCount(int length, int cell) {
    return length / cell + (length % cell ? 1 : 0);
}

int CellSize(int index, int count, int length, int cell) {
    return index == count - 1 && length % cell ? length % cell : cell;
}

// A shuffled list of `count` entries. The lists of the engine are 16-bit:
// a count beyond that (a frame narrower than 120 pixels and taller than 275
// lines, which no mode has) keeps its plain order.
std::vector<int> ShuffledList(Effect& engine, int count) {
    std::vector<int> list(static_cast<size_t>(count));
    if (count > INT16_MAX) {
        std::iota(list.begin(), list.end(), 0);
        return list;
    }
    std::vector<int16_t> used(list.size()), order(list.size());
    engine.ShuffleOrder(count, used.data(), order.data());
    for (size_t i = 0; i < list.size(); ++i)
        list[i] = order[i];
    return list;
}

}  // namespace

// Square cells of a sixtieth of the width in random order; the progress for
// the key level is the number of cells done.
void EffectDecklink::DissolveEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    const int cell = m_nWidth / 60;
    const int columns = CellCount(m_nWidth, cell), rows = CellCount(m_nHeight, cell);
    plan.nTotal = columns * rows;
    const std::vector<int> order = ShuffledList(*this, plan.nTotal);
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        for (int j = p; j < p + step; ++j) {
            const int row = order[static_cast<size_t>(j)] / columns;
            const int col = order[static_cast<size_t>(j)] % columns;
            pen.Rect(col * cell, row * cell, CellSize(col, columns, m_nWidth, cell),
                     CellSize(row, rows, m_nHeight, cell));
        }
    });
}

// Six bands that open together; what is left below the sixth (or right of
// it) appears whole on the first sub-step.
void EffectDecklink::BlindsEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    const bool rows = ReadPhaseRequest(request, phase).nEffect == 10;
    const int length = rows ? m_nHeight : m_nWidth;
    const int band = length / 6, rest = length - 6 * band;
    plan.nTotal = band;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        for (int k = 0; k < 6; ++k)
            rows ? pen.Rect(0, k * band + p, m_nWidth, step)
                 : pen.Rect(k * band + p, 0, step, m_nHeight);
        if (p == 0 && rest > 0)
            rows ? pen.Rect(0, 6 * band, m_nWidth, rest) : pen.Rect(6 * band, 0, rest, m_nHeight);
    });
}

// Cells of a sixteenth of the width. `sameParity` takes the cells whose row
// and column have the same parity, whole; otherwise the others grow by
// `step` lines from the top (across) or columns from the left.
void EffectDecklink::CheckerCells(const UstPen& pen, int cell, bool across, bool sameParity, int p,
                                  int step) {
    const int columns = CellCount(m_nWidth, cell), rows = CellCount(m_nHeight, cell);
    for (int row = 0; row < rows; ++row) {
        for (int col = 0; col < columns; ++col) {
            if (((row ^ col) & 1) == (sameParity ? 1 : 0)) continue;
            const int x = col * cell, y = row * cell;
            const int w = CellSize(col, columns, m_nWidth, cell);
            const int h = CellSize(row, rows, m_nHeight, cell);
            if (sameParity)
                pen.Rect(x, y, w, h);
            else if (across && p < h)
                pen.Rect(x, y + p, w, std::min(step, h - p));
            else if (!across && p < w)
                pen.Rect(x + p, y, std::min(step, w - p), h);
        }
    }
}

// Both phases read the in speed and the in fade: that is how this family
// has always behaved, and with the in fade on the out effect fades too.
void EffectDecklink::CheckerboardEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, 0, steps);
    plan.nPhase = phase;
    plan.bStartDark = plan.bFade;
    const bool across = ReadPhaseRequest(request, phase).nEffect == 12;
    const int cell = m_nWidth / 16;
    plan.nTotal = cell;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        if (phase == 0 && p == 0) CheckerCells(pen, cell, across, true, 0, 0);
        CheckerCells(pen, cell, across, false, p, step);
    });
    if (phase != 2) return;
    m_pChannel->WaitFrame();
    TimedSubStep([&] { CheckerCells(pen, cell, across, true, 0, 0); });
}

// Teeth that slide in from both sides: even ones from the top (or left),
// odd ones from the bottom (or right), one line each per unit of the step.
void EffectDecklink::CombEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    const bool vertical = ReadPhaseRequest(request, phase).nEffect == 15;
    const int across = vertical ? m_nWidth : m_nHeight;  // the teeth stand side by side
    const int along = vertical ? m_nHeight : m_nWidth;   // and slide this way
    const int tooth = vertical ? m_nWidth / 32 : m_nHeight / 24;
    const int teeth = CellCount(across, tooth);
    plan.nTotal = along;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        for (int k = 0; k < teeth; ++k) {
            const int from = k * tooth, to = from + CellSize(k, teeth, across, tooth) - 1;
            for (int i = 0; i < step; ++i) {
                const int at = k % 2 == 0 ? p + i : along - 1 - p - i;
                vertical ? pen.Row(from, to, at) : pen.Column(at, from, to);
            }
        }
    });
}

// Whole rows (or columns) in a shuffled order.
void EffectDecklink::RandomBarsEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    const bool rows = ReadPhaseRequest(request, phase).nEffect == 16;
    plan.nTotal = rows ? m_nHeight : m_nWidth;
    const std::vector<int> order = ShuffledList(*this, plan.nTotal);
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        for (int j = p; j < p + step; ++j) {
            const int at = order[static_cast<size_t>(j)];
            rows ? pen.Row(0, m_nWidth - 1, at) : pen.Column(at, 0, m_nHeight - 1);
        }
    });
}

}  // namespace orv
