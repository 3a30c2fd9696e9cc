// The dissolve and the strips and bars: patterns of cells, bands and lines
// that the page fills in, each sub-step only the pixels it reveals.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>
#include <vector>

#include "board/pixel_store.h"
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
            const int from = k * tooth, size = CellSize(k, teeth, across, tooth);
            const int at = k % 2 == 0 ? p : along - p - step;
            vertical ? pen.Rect(from, at, size, step) : pen.Rect(at, from, step, size);
        }
    });
}

namespace {

// The page in bands of `band` rows (the last band what is left), each band
// column by column: the band from row top holds column x at
// top x w + x x rows. Scattered columns written a band at a time read from
// it in the order of the memory, where the page itself would have them take
// one pixel from every row. Made before the first frame, as the other tables
// of a pattern.
CPixelStore PageInColumnBands(const uint32_t* page, int w, int h, int band) {
    CPixelStore bands(static_cast<size_t>(w) * h);
    if (bands.empty()) return bands;
    for (int top = 0; top < h; top += band) {
        const int rows = std::min(band, h - top);
        uint32_t* to = bands.data() + static_cast<size_t>(top) * w;
        for (int x = 0; x < w; ++x)
            for (int r = 0; r < rows; ++r)
                to[static_cast<size_t>(x) * rows + r] = page[static_cast<size_t>(top + r) * w + x];
    }
    return bands;
}

}  // namespace

// Whole rows (or columns) in a shuffled order. The columns of a sub-step go
// out in bands of a few rows, all columns of a band before the next band,
// from the page turned column by column: the same pixels as whole columns,
// at a pace the caches can follow. A sub-step that is captured hands over
// its finished rows a few bands at a time, while they are still in this
// core's caches, rather than reading the whole field back from memory.
void EffectDecklink::RandomBarsEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    const bool rows = ReadPhaseRequest(request, phase).nEffect == 16;
    plan.nTotal = rows ? m_nHeight : m_nWidth;
    const std::vector<int> order = ShuffledList(*this, plan.nTotal);
    constexpr int BAND = 16, CAPTURED_BANDS = 4;
    UstPen pen = PenFor(phase);
    CPixelStore bands;
    pen.nBandRows = BAND;
    if (!rows && pen.pSource) {
        bands = PageInColumnBands(pen.pSource, m_nWidth, m_nHeight, BAND);
        pen.pBands = bands.data();
    }
    StepLoop(plan, [&](int p, int step) {
        std::vector<int> lines(order.begin() + p, order.begin() + p + step);
        if (rows) {
            for (int at : lines)
                pen.Row(0, m_nWidth - 1, at);
            return;
        }
        std::sort(lines.begin(), lines.end());
        for (int top = 0; top < m_nHeight; top += BAND) {
            pen.BandOfColumns(lines, top);
            if ((top / BAND) % CAPTURED_BANDS == CAPTURED_BANDS - 1)
                CaptureRowsAbove(std::min(m_nHeight, top + BAND));
        }
    });
}

}  // namespace orv
