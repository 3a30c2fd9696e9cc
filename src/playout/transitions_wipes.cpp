// The wipes: edges that travel across the frame, boxes, the plus, the wedge
// and the wheels, and the splits.
#include <algorithm>
#include <vector>

#include "playout/effect_decklink.h"

namespace orv {

// "Wipe Down" and "Wipe Up" move a band of rows, "Wipe Right" and "Wipe
// Left" a run of columns.
void EffectDecklink::WipeEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const int number = ReadPhaseRequest(request, phase).nEffect;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = number == 18 || number == 21 ? m_nHeight : m_nWidth;
    const UstPen pen = PenFor(phase);
    StepLoop(plan, [&](int p, int step) {
        if (number == 18) pen.Rect(0, p, m_nWidth, step);
        if (number == 21) pen.Rect(0, m_nHeight - p - step, m_nWidth, step);
        for (int i = 0; i < step && (number == 19 || number == 20); ++i)
            pen.Column(number == 20 ? p + i : m_nWidth - 1 - p - i, 0, m_nHeight - 1);
    });
}

// Rows close in at the speed of the step, columns at the frame's ratio
// times that; the last step takes the whole inner rectangle at once.
void EffectDecklink::BoxInSubStep(const UstPen& pen, int p, int step, int total, double q, int& c) {
    const int w = m_nWidth, h = m_nHeight;
    if (step >= total - p) {
        pen.Rect(c, p, (w / 2 - c) * 2, 2 * (total - p));
        return;
    }
    const int n = static_cast<int>((p + step) * q) - c;
    for (int i = 0; i < std::max(n, step); ++i) {
        if (i < step) {
            pen.Row(0, w - 1, p + i);
            pen.Row(0, w - 1, h - 1 - p - i);
        }
        if (i < n) {
            pen.Column(c + i, p + i, h - 1 - p - i);
            pen.Column(w - 1 - c - i, p + i, h - 1 - p - i);
        }
    }
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
    for (int i = 0; i < step; ++i) {
        pen.Row(mx - side, mx + side - 1, my - 1 - p - i);
        pen.Row(mx - side, mx + side - 1, my + p + i);
    }
    for (int i = 0; i < n; ++i) {
        pen.Column(mx - 1 - c - i, my - reach, my + reach - 1);
        pen.Column(mx + c + i, my - reach, my + reach - 1);
    }
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
        for (int i = 0; i < std::max(n, step); ++i) {
            if (i < step) {
                pen.Row(0, w - 1, h / 2 - 1 - p - i);
                pen.Row(0, w - 1, h / 2 + p + i);
            }
            if (i < n) {
                pen.Column(w / 2 - 1 - c - i, 0, h - 1);
                pen.Column(w / 2 + c + i, 0, h - 1);
            }
        }
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
    auto ray = [&](int entry) {
        const size_t e = static_cast<size_t>(entry % count);
        pen.Slant(cx, cy, xs[e], ys[e]);
    };
    StepLoop(plan, [&](int p, int step) {
        for (int i = 0; i < step; ++i) {
            if (wedge) {
                ray(p + i);
                ray(count - 1 - p - i);
            }
            for (int k = 0; k < spokes && !wedge; ++k)
                ray(starts[static_cast<size_t>(k)] + p + i);
        }
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

// Two lines a unit that meet in the middle (In) or part from it (Out).
void EffectDecklink::SplitEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const int number = ReadPhaseRequest(request, phase).nEffect;
    const bool rows = number == 31 || number == 32, in = number == 31 || number == 33;
    const int length = rows ? m_nHeight : m_nWidth;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.nTotal = length / 2;
    const UstPen pen = PenFor(phase);
    auto line = [&](int at) {
        rows ? pen.Row(0, m_nWidth - 1, at) : pen.Column(at, 0, m_nHeight - 1);
    };
    StepLoop(plan, [&](int p, int step) {
        for (int i = 0; i < step; ++i) {
            line(in ? p + i : length / 2 - 1 - p - i);
            line(in ? length - 1 - p - i : length / 2 + p + i);
        }
    });
}

}  // namespace orv
