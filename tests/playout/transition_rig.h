#pragma once
// A test board with the transition driver over it, a page whose every pixel
// is distinct, and the runs that the transition tests share.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "board/canvas.h"
#include "board/test_board.h"
#include "playout/effect_request.h"
#include "playout/transition_driver.h"

namespace orv::test {

inline CfgVideo Mode(const char* name) {
    CfgVideo mode;
    EXPECT_TRUE(ModeByShortName(name, mode)) << name;
    return mode;
}

// Every pixel opaque-ish, nonzero and different from every other, so a
// pixel taken from the wrong place shows.
inline std::vector<uint32_t> DistinctPage(int w, int h) {
    std::vector<uint32_t> page(static_cast<size_t>(w) * h);
    for (size_t i = 0; i < page.size(); ++i)
        page[i] = 0x80000000u | static_cast<uint32_t>(i + 1);
    return page;
}

inline UstPageEffect Request(int in, int inSpeed, bool inFade, int out, int outSpeed,
                             bool outFade) {
    UstPageEffect e = MakeDefaultPageEffect();
    e.nInEffect = in;
    e.nInSpeed = inSpeed;
    e.bInFade = inFade;
    e.nOutEffect = out;
    e.nOutSpeed = outSpeed;
    e.bOutFade = outFade;
    return e;
}

inline int CountDifferent(const std::vector<uint32_t>& a, const std::vector<uint32_t>& b) {
    int n = 0;
    for (size_t i = 0; i < a.size() && i < b.size(); ++i)
        n += a[i] != b[i];
    return n;
}

inline int CountNonZero(const std::vector<uint32_t>& a) {
    int n = 0;
    for (uint32_t p : a)
        n += p != 0;
    return n;
}

struct UstRig {
    // Page buffers of the board's frame unless a size is given.
    explicit UstRig(const char* mode, EPlayoutClock clock = EPlayoutClock::FREE, int w = 0,
                    int h = 0)
        : board(Mode(mode), clock),
          driver(w ? std::make_unique<CTransitionDriver>(board, w, h)
                   : std::make_unique<CTransitionDriver>(board)),
          page(DistinctPage(driver->Width(), driver->Height())) {
        driver->SetPicture(page.data());
    }

    EffectDecklink& Engine() { return driver->Engine(); }
    int W() const { return driver->Width(); }
    int H() const { return driver->Height(); }
    // The view of the page's size at the origin.
    std::vector<uint32_t> PageView() {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        std::vector<uint32_t> view(static_cast<size_t>(W()) * H());
        CopyFrame(view.data(), {board.GetChannelCanvas(0), x, y, W(), H()});
        return view;
    }
    // Nonzero pixels of the canvas outside the page's rectangle at the origin.
    int WrittenOutsideView() {
        const uint32_t* canvas = board.GetChannelCanvas(0);
        int n = 0;
        for (size_t i = 0; i < CANVAS_PIXELS; ++i)
            n += canvas[i] != 0;
        return n - CountNonZero(PageView());
    }
    // The canvas empty again and the origin at its corner, for the next run.
    void Reset() {
        board.SetOrigin(0, 0);
        std::fill_n(board.GetChannelCanvas(0), CANVAS_PIXELS, 0u);
    }

    CTestBoard board;
    std::unique_ptr<CTransitionDriver> driver;
    std::vector<uint32_t> page;
};

// Runs `run` on a drawing thread of a HAND-clocked board and gives it frames
// until it returns. After the drawing of frame k (its sub-steps done and the
// thread waiting again, or ended) afterFrame(k) runs. Answers the frames.
inline int RunByHand(CTestBoard& board, const std::function<void()>& run,
                     const std::function<void(int)>& afterFrame = {}) {
    using namespace std::chrono_literals;
    std::atomic<bool> done{false};
    std::thread drawer([&] {
        run();
        done = true;
    });
    int frames = 0;
    for (;;) {
        while (!board.WaitForWaiter(2ms)) {
            if (!done) continue;
            if (afterFrame && frames > 0) afterFrame(frames);
            drawer.join();
            return frames;
        }
        if (afterFrame && frames > 0) afterFrame(frames);
        board.Tick();
        ++frames;
    }
}

// The view after the first frame of the in effect of `request`, which then
// runs to its end.
inline std::vector<uint32_t> ViewAfterFirstFrame(UstRig& rig, UstPageEffect& request) {
    std::vector<uint32_t> first;
    RunByHand(
        rig.board, [&] { rig.driver->TakeIn(RequestWords(request)); },
        [&](int frame) {
            if (frame == 1) first = rig.PageView();
        });
    return first;
}

}  // namespace orv::test
