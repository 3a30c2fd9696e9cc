// The wipes: edges that travel across the frame, boxes, the plus, the wedge
// and the wheels, and the splits.
#include <algorithm>
#include <vector>

#include "playout/effect_decklink.h"
#include "playout/ray_fan.h"

namespace orv {

// "Wipe Down" and "Wipe Up" move a band of rows, "Wipe Right" and "Wipe
// Left" a band of columns. Bands of lines side by side go out as one
// rectangle here and in the routines below: the same pixels, written row
// by row, for a column of the canvas is a walk in steps of 16 KiB that the
// caches cannot follow.
void EffectDecklink::WipeEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const int number = ReadPhaseRequest(request, phase).nEffect;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = number == 18 || number == 21 ? m_nHeight : m_nWidth;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        if (number == 18) pen.Rect(0, p, m_nWidth, step);
        if (number == 21) pen.Rect(0, m_nHeight - p - step, m_nWidth, step);
        if (number == 20) pen.Rect(p, 0, step, m_nHeight);
        if (number == 19) pen.Rect(m_nWidth - p - step, 0, step, m_nHeight);
    });
}

// Columns x, x + dir, ... (n of them), the i-th from row top + i down to
// row bottom - i: the rows where all of them stand as one rectangle, the
// rows above and below as short runs.
void EffectDecklink::Trapezoid(const UstPen& pen, int x, int dir, int n, int top, int bottom) {
    if (n <= 0) return;
    const int bandTop = top + n - 1, bandBottom = bottom - n + 1;
    const bool band = bandTop <= bandBottom;
    if (band) pen.Rect(dir > 0 ? x : x - n + 1, bandTop, n, bandBottom - bandTop + 1);
    for (int y = top; y <= bottom; ++y) {
        if (band && y == bandTop) {
            y = bandBottom;
            continue;
        }
        const int k = std::min({n - 1, y - top, bottom - y});
        dir > 0 ? pen.Row(x, x + k, y) : pen.Row(x - k, x, y);
    }
}

// Rows close in at the speed of the step, columns at the frame's ratio
// times that, each new column from its own depth; the last step takes the
// whole inner rectangle at once.
void EffectDecklink::BoxInSubStep(const UstPen& pen, int p, int step, int total, double q, int& c) {
    const int w = m_nWidth, h = m_nHeight;
    if (step >= total - p) {
        pen.Rect(c, p, (w / 2 - c) * 2, 2 * (total - p));
        return;
    }
    const int n = static_cast<int>((p + step) * q) - c;
    pen.Rect(0, p, w, step);
    pen.Rect(0, h - p - step, w, step);
    Trapezoid(pen, c, 1, n, p, h - 1 - p);
    Trapezoid(pen, w - 1 - c, -1, n, p, h - 1 - p);
    c += n;
}

// The box grows from the middle: new rows as wide as the box is after this
// step, new columns as high. The last step takes all that is outside it.
void EffectDecklink::BoxOutSubStep(const UstPen& pen, int p, int step, int total, double q,
                                   int& c) {
    const int w = m_nWidth, h = m_nHeight, mx = w / 2, my = h / 2;
    if (step >= total - p) {
        pen.Rect(0, 0, w, my - p);
        pen.Rect(0, my + p, w, h - my - p);
        pen.Rect(0, my - p, mx - c, 2 * p);
        pen.Rect(mx + c, my - p, w - mx - c, 2 * p);
        return;
    }
    const int n = static_cast<int>((p + step) * q) - c;
    const int side = c + n, reach = p + step;
    pen.Rect(mx - side, my - reach, 2 * side, step);
    pen.Rect(mx - side, my + p, 2 * side, step);
    pen.Rect(mx - side, my - reach, n, 2 * reach);
    pen.Rect(mx + c, my - reach, n, 2 * reach);
    c += n;
}

void EffectDecklink::BoxEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const bool in = ReadPhaseRequest(request, phase).nEffect == 22;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = m_nHeight / 2;
    const double q = static_cast<double>(m_nWidth) / m_nHeight;
    int c = 0;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        in ? BoxInSubStep(pen, p, step, plan.nTotal, q, c)
           : BoxOutSubStep(pen, p, step, plan.nTotal, q, c);
    });
}

// Two bars through the centre that widen: rows at the step, columns at the
// frame's ratio of the progress; the last step takes all columns left.
void EffectDecklink::PlusEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = m_nHeight / 2;
    const int w = m_nWidth, h = m_nHeight;
    const double q = static_cast<double>(w) / h;
    int c = 0;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        const int n = p + step >= plan.nTotal ? w / 2 - c : static_cast<int>(p * q) - c;
        pen.Rect(0, h / 2 - p - step, w, step);
        pen.Rect(0, h / 2 + p, w, step);
        pen.Rect(w / 2 - c - n, 0, n, h);
        pen.Rect(w / 2 + c, 0, n, h);
        c += n;
    });
}

// Rays from the centre to the frame's border pixels, in the order of the
// border list: the wedge runs two fronts round both ways from the top until
// they meet at the bottom; a wheel runs `spokes` rays at equal spacing.
void EffectDecklink::SpokeEffect(const UstStepPlan& base, int spokes, bool wedge) {
    const int w = m_nWidth, h = m_nHeight;
    const int count = 2 * (w + h);
    const int cx = spokes == 8 ? w / 2 : w / 2 - 1, cy = spokes == 8 ? h / 2 : h / 2 - 1;
    std::vector<int16_t> xs(static_cast<size_t>(count)), ys(static_cast<size_t>(count));
    BuildPerimeter(xs.data(), ys.data(), cx, cy, w, h);
    std::vector<int> starts(static_cast<size_t>(spokes));
    for (int k = 0; k < spokes; ++k)
        starts[static_cast<size_t>(k)] = k * count / spokes;
    UstStepPlan plan = base;
    plan.nTotal = wedge ? count / 2 : count / spokes + (count % spokes ? 1 : 0);
    const UstPen pen = PenFor(plan.nPhase);
    CRayFan fan(h);
    auto ray = [&](int entry) {
        const size_t e = static_cast<size_t>(entry % count);
        fan.AddRay(cx, cy, xs[e], ys[e]);
    };
    // One front (or spoke) after the other, so that neighbouring rays come
    // together.
    StepLoop(plan, [&](int p, int step) {
        for (int i = 0; i < step && wedge; ++i)
            ray(p + i);
        for (int i = 0; i < step && wedge; ++i)
            ray(count - 1 - p - i);
        for (int k = 0; k < spokes && !wedge; ++k)
            for (int i = 0; i < step; ++i)
                ray(starts[static_cast<size_t>(k)] + p + i);
        fan.Flush([&](int x1, int x2, int y) { pen.Row(x1, x2, y); });
    });
}

void EffectDecklink::WedgeEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    SpokeEffect(PlanFor(request, phase, steps), 2, true);
}

void EffectDecklink::WheelEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    static constexpr int SPOKES[] = {1, 2, 3, 4, 8};  // effects 26 to 30
    const int number = ReadPhaseRequest(request, phase).nEffect;
    SpokeEffect(PlanFor(request, phase, steps), SPOKES[std::clamp(number - 26, 0, 4)], false);
}

// Two bands that meet in the middle (In) or part from it (Out), a line
// each a unit of the step.
void EffectDecklink::SplitEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const int number = ReadPhaseRequest(request, phase).nEffect;
    const bool rows = number == 31 || number == 32, in = number == 31 || number == 33;
    const int length = rows ? m_nHeight : m_nWidth;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = length / 2;
    const UstPen pen = PenFor(phase);
    auto band = [&](int at, int n) {
        rows ? pen.Rect(0, at, m_nWidth, n) : pen.Rect(at, 0, n, m_nHeight);
    };
    StepLoop(plan, [&](int p, int step) {
        band(in ? p : length / 2 - p - step, step);
        band(in ? length - p - step : length / 2 + p, step);
    });
}

}  // namespace orv
