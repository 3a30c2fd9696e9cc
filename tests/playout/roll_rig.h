#pragma once
// Roll and crawl runs through a hand-clocked test board: an engine whose
// waits between passes are counted instead of slept, a board that records
// every copy and fill the routine makes, and the page of stand-in strip
// objects whose every pixel names its page row and column.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "playout/effect_table.h"
#include "project/page_manager.h"
#include "support/strip_object.h"
#include "transition_rig.h"

namespace orv::test {

// What the routine wrote: a copy (from a buffer) or a blank fill.
struct UstWrite {
    const uint32_t* pSource;  // null for a fill
    int dx, dy, srcX, srcY, w, h;
};

class CRecordingBoard : public CTestBoard {
public:
    using CTestBoard::CTestBoard;
    void CopyRect(int dx, int dy, uint32_t* canvas, int srcStride, int srcX, int srcY, int w, int h,
                  const uint32_t* src) override {
        Record({src, dx, dy, srcX, srcY, w, h});
        CTestBoard::CopyRect(dx, dy, canvas, srcStride, srcX, srcY, w, h, src);
    }
    void FillRect(int dx, int dy, uint32_t* canvas, int w, int h, uint32_t value) override {
        Record({nullptr, dx, dy, 0, 0, w, h});
        CTestBoard::FillRect(dx, dy, canvas, w, h, value);
    }
    std::vector<UstWrite> Writes() {
        std::lock_guard lock(m_mutex);
        return m_writes;
    }

private:
    void Record(const UstWrite& w) {
        std::lock_guard lock(m_mutex);
        m_writes.push_back(w);
    }
    std::mutex m_mutex;
    std::vector<UstWrite> m_writes;
};

// The engine with its pause between passes in test time: every piece of
// waiting is logged, and slept only when asked.
class CScrollEngine : public EffectDecklink {
public:
    using EffectDecklink::EffectDecklink;
    void WaitMs(int ms) override {
        {
            std::lock_guard lock(m_mutex);
            log.push_back(ms);
        }
        if (onWait) onWait();
        if (bRealWaits) EffectDecklink::WaitMs(ms);
    }
    // Passes show in the log as -1.
    void PrepareStrips(int layer) override {
        {
            std::lock_guard lock(m_mutex);
            log.push_back(-1);
        }
        EffectDecklink::PrepareStrips(layer);
    }
    std::vector<int> Log() {
        std::lock_guard lock(m_mutex);
        return log;
    }

    bool bRealWaits = false;
    std::function<void()> onWait;

private:
    std::mutex m_mutex;
    std::vector<int> log;
};

struct UstRollRig {
    UstRollRig(const char* mode, int pageType)
        : board(Mode(mode), EPlayoutClock::HAND),
          w(board.GetFrameSize(0).cx),
          h(board.GetFrameSize(0).cy),
          bufferA(static_cast<size_t>(w) * h),
          bufferB(bufferA.size()),
          engine(0, &board, bufferA.data(), bufferB.data(), w, h) {
        page.m_nPageType = static_cast<uint32_t>(pageType);
        page.m_effect.nInEffect = page.m_effect.nOutEffect =
            pageType == 2 ? EFFECT_CRAWL : EFFECT_ROLL;
    }

    // A strip object over the page's first `length` rows (roll) or columns
    // (crawl), the full frame across.
    CStripObject* AddStrips(int length) {
        const UstRect r =
            page.m_nPageType == 2 ? UstRect{0, 0, length, h} : UstRect{0, 0, w, length};
        return static_cast<CStripObject*>(page.AddObject(std::make_unique<CStripObject>(r)));
    }
    // The page's own request, as the play engine passes it: the keys change
    // it while the page moves.
    int* Words() { return RequestWords(page.m_effect); }

    // The run as the play engine does it, frame by frame. Before every
    // frame the strip thread is let finish what it was asked, unless
    // `racing`; afterFrame(k) sees the canvas after frame k.
    int Play(const std::function<void(int)>& afterFrame = {}, bool racing = false) {
        page.BeginScroll(w, h);
        std::fill(bufferA.begin(), bufferA.end(), 0u);
        std::fill(bufferB.begin(), bufferB.end(), 0u);
        page.DrawForPlay(bufferA.data(), nullptr, w, h);
        const int frames = RunByHand(
            board,
            [&] {
                engine.Run(Words(), 0, &page);
                if (afterRun) afterRun();
            },
            [&](int frame) {
                if (!racing) WaitForStripThread();
                if (afterFrame) afterFrame(frame);
            });
        page.EndScroll();
        return frames;
    }
    void WaitForStripThread() {
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!engine.StripThreadIdle() && std::chrono::steady_clock::now() < until)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    // The newest `rows` rows (columns for a crawl) at the far edge of the
    // view: what entered the canvas last.
    std::vector<uint32_t> EnteredLast(int rows) {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        const uint32_t* canvas = board.GetChannelCanvas(0);
        std::vector<uint32_t> out;
        const bool crawl = page.m_nPageType == 2;
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < (crawl ? h : w); ++j)
                out.push_back(
                    crawl ? *CanvasPixel(const_cast<uint32_t*>(canvas), x + w - rows + i, y + j)
                          : *CanvasPixel(const_cast<uint32_t*>(canvas), x + j, y + h - rows + i));
        return out;
    }
    int Origin() {
        int x = 0, y = 0;
        board.GetOrigin(x, y);
        return page.m_nPageType == 2 ? x : y;
    }

    CRecordingBoard board;
    int w, h;
    std::vector<uint32_t> bufferA, bufferB;
    CScrollEngine engine;
    CPageManager page;
    std::function<void()> afterRun;  // on the drawing thread, as Run returns
};

}  // namespace orv::test
