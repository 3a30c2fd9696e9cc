#pragma once
// The play engine over a test board, with a window that records what the
// engine tells it, pages of one colour each, and waits on both.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "board/test_board.h"
#include "playout/effect_table.h"
#include "playout/play_engine.h"
#include "project/page_manager.h"
#include "support/rect_object.h"
#include "transition_rig.h"

namespace orv::test {

using UstPost = std::pair<int, int>;  // state, parameter

class CPostLog : public IPlayHost {
public:
    void PostPlayState(int state, int param) override {
        std::lock_guard lock(m_mutex);
        m_posts.emplace_back(state, param);
        m_cv.notify_all();
    }
    void SetPlayMode(int mode) override {
        std::lock_guard lock(m_mutex);
        m_modes.push_back(mode);
        m_cv.notify_all();
    }
    std::vector<UstPost> Posts() {
        std::lock_guard lock(m_mutex);
        return m_posts;
    }
    // The play modes told, once `count` of them have come (or the time is up).
    std::vector<int> Modes(size_t count = 0) {
        std::unique_lock lock(m_mutex);
        m_cv.wait_for(lock, std::chrono::seconds(10), [&] { return m_modes.size() >= count; });
        return m_modes;
    }
    void Forget() {
        std::lock_guard lock(m_mutex);
        m_posts.clear();
        m_modes.clear();
    }
    // Until `post` has come `times` times in all.
    bool WaitFor(UstPost post, int times = 1,
                 std::chrono::milliseconds timeout = std::chrono::seconds(10)) {
        std::unique_lock lock(m_mutex);
        return m_cv.wait_for(lock, timeout, [&] {
            return std::count(m_posts.begin(), m_posts.end(), post) >= times;
        });
    }
    int Count(int state) {
        std::lock_guard lock(m_mutex);
        return static_cast<int>(std::count_if(m_posts.begin(), m_posts.end(),
                                              [&](const UstPost& p) { return p.first == state; }));
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<UstPost> m_posts;
    std::vector<int> m_modes;
};

// An object that blinks, for the pages that rest in the blink stage.
class CBlinkObject : public CRectObject {
public:
    using CRectObject::CRectObject;
    bool GetBlink() const override { return true; }
};

inline std::unique_ptr<CPageManager> ColourPage(uint32_t colour, const UstPageEffect& effect, int w,
                                                int h) {
    auto page = std::make_unique<CPageManager>();
    page->AddObject(std::make_unique<CRectObject>(UstRect{0, 0, w, h}, colour));
    page->m_effect = effect;
    return page;
}

struct UstPlayRig {
    // The engine's frame is smaller than the board's: the transitions stay
    // short and the view at the origin is all there is to look at.
    static constexpr int W = 96, H = 54;

    explicit UstPlayRig(EPlayoutClock clock = EPlayoutClock::FREE)
        : board(Mode("pal"), clock),
          engine(std::make_unique<CPlayEngine>(0, &board, UstSize{W, H}, UstSize{30, 17}, &log)) {
        engine->SetPlayList(&list);
    }
    ~UstPlayRig() { engine.reset(); }

    CPageManager* AddPage(uint32_t colour, const UstPageEffect& effect) {
        pages.push_back(ColourPage(colour, effect, W, H));
        list.m_pPages.push_back(pages.back().get());
        list.m_nEnd = static_cast<int>(pages.size()) - 1;
        return pages.back().get();
    }
    // The step that posted `post` has ended.
    bool Settle(UstPost post, int times = 1) {
        if (!log.WaitFor(post, times)) return false;
        for (int i = 0; i < 2000 && engine->IsLocked(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return !engine->IsLocked();
    }
    // The view of the engine's frame at the origin, as the canvas holds it.
    std::vector<uint32_t> Air() {
        const std::vector<uint32_t> view = board.View();
        const int stride = board.GetFrameSize(0).cx;
        std::vector<uint32_t> frame(static_cast<size_t>(W) * H);
        for (int y = 0; y < H; ++y)
            std::copy_n(view.begin() + static_cast<ptrdiff_t>(y) * stride, W,
                        frame.begin() + static_cast<ptrdiff_t>(y) * W);
        return frame;
    }
    bool AirIs(uint32_t colour) {
        const std::vector<uint32_t> air = Air();
        return std::all_of(air.begin(), air.end(), [&](uint32_t p) { return p == colour; });
    }

    CTestBoard board;
    CPostLog log;
    UstPlayList list;
    std::vector<std::unique_ptr<CPageManager>> pages;
    std::unique_ptr<CPlayEngine> engine;
};

}  // namespace orv::test
