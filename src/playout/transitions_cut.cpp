// The cut family and the pushes: the routines that write the whole page at
// once and let the key level or the origin do the movement.
#include "playout/effect_decklink.h"
#include "playout/effect_table.h"

namespace orv {

namespace {

// A fade moves the key by the speed times 2.55 levels a frame, so it lasts
// from 11 frames (speed 10) to 128 (speed 1).
int FadeStepLevel(int speed) {
    return static_cast<int>(ClampSpeed(speed) * 2.55);
}

}  // namespace

void EffectDecklink::CutEffect(int* request, int phase, const int*) {
    CutRoutine(request, phase, false);
}

void EffectDecklink::FadeEffect(int* request, int phase, const int*) {
    CutRoutine(request, phase, true);
}

void EffectDecklink::CutRoutine(int* request, int phase, bool alwaysFade) {
    const UstPhaseRequest r = ReadPhaseRequest(request, phase);
    const bool fade = alwaysFade || r.bFade != 0;
    if (phase == 0) CutIn(fade, FadeStepLevel(r.nSpeed));
    if (phase == 2) CutOut(fade, FadeStepLevel(r.nSpeed));
}

// The level set second in each frame is the one that counts, so the fade
// ends at the last level below 255 (250 at speed 10): kept as it is.
void EffectDecklink::CutIn(bool fade, int stepLevel) {
    int x0 = 0, y0 = 0;
    m_pChannel->GetOrigin(x0, y0);
    if (fade) m_pChannel->SetKeyLevel(0);
    m_pChannel->WaitFrame();
    TimedSubStep([&] {
        m_pChannel->CopyRect(x0 % m_nCanvasWidth, y0, m_nWidth, 0, 0, m_nWidth, m_nHeight,
                             m_pBufferA);
        Capture();
    });
    if (!fade) return;
    int level = 0;
    do {
        m_pChannel->WaitFrame();
        const int next = level + stepLevel;
        m_pChannel->SetKeyLevel(next >= 255 ? 255 : level);
        m_pChannel->SetKeyLevel(level);
        level = next;
    } while (level < 255);
}

// Without a fade nothing is written: a cut out alone leaves the page, and
// the next page's cut replaces it.
void EffectDecklink::CutOut(bool fade, int stepLevel) {
    if (!fade) return;
    for (int level = 0; level < 255; level += stepLevel) {
        m_pChannel->WaitFrame();
        m_pChannel->SetKeyLevel(level + stepLevel < 255 ? 255 - level : 0);
    }
    Clear();
}

// The new picture is written once beside the view and the origin does the
// rest. It is not brought back: everything after works relative to where
// the push left it.
void EffectDecklink::PushEffect(int* request, int phase, const int* steps) {
    if (phase != 0 && phase != 2) return;
    const int number = ReadPhaseRequest(request, phase).nEffect;
    UstStepPlan plan = PlanFor(request, phase, steps);
    plan.bStartDark = false;  // set here, before the picture goes beside the view
    plan.bLevelFirst = true;
    plan.nTotal = number == 7 || number == 8 ? m_nWidth : m_nHeight;
    const int cw = m_nCanvasWidth, ch = m_nCanvasHeight;
    int x = 0, y = 0;
    m_pChannel->GetOrigin(x, y);
    int dx = x, dy = y;
    if (number == 8) dx = (x - m_nWidth + cw) % cw;
    if (number == 7) dx = (x + m_nWidth + cw) % cw;
    if (number == 6) dy = (y - m_nHeight + ch) % ch;
    if (number == 9) dy = (y + m_nHeight + ch) % ch;
    if (plan.bFade && phase == 0) m_pChannel->SetKeyLevel(0);
    if (phase == 0)
        m_pChannel->CopyRect(dx, dy, m_nWidth, 0, 0, m_nWidth, m_nHeight, m_pBufferA);
    else
        m_pChannel->FillRect(dx, dy, m_nWidth, m_nHeight, 0);
    StepLoop(plan, [&](int, int step) {
        if (number == 8) x = (cw - step + x) % cw;
        if (number == 7) x = (x + step) % cw;
        if (number == 6) y = (ch - step + y) % ch;
        if (number == 9) y = (y + step) % ch;
        m_pChannel->SetOrigin(x, y);
    });
}

}  // namespace orv
