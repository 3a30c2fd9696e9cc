#pragma once
// The logo tab's own animation thread: a logo page with animations plays
// them over its still picture for the PREVIEW monitor, at the animations'
// rate, apart from the play engine and its board.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "media/media_player.h"
#include "render/geometry.h"

namespace orv {

class CPageManager;

class CLogoAnimator {
public:
    // A composed picture of outWidth x outHeight, on the animator's thread.
    using Show = std::function<void(std::vector<uint32_t> picture, int width, int height)>;

    CLogoAnimator() = default;
    ~CLogoAnimator() { Stop(); }
    CLogoAnimator(const CLogoAnimator&) = delete;
    CLogoAnimator& operator=(const CLogoAnimator&) = delete;

    // Plays the page's animations over `still` (the page drawn for play at
    // width x height), each picture scaled to outWidth x outHeight. False,
    // with no thread, when no animation of the page can play.
    bool Start(const CPageManager& page, std::vector<uint32_t> still, int width, int height,
               int outWidth, int outHeight, Show show,
               std::chrono::milliseconds period = std::chrono::milliseconds(1000 / ANIMATION_FPS));
    void Stop();
    bool Running() const { return m_thread.joinable(); }

private:
    struct UstLogoAnim {
        std::unique_ptr<MediaPlayer> pPlayer;
        UstRect rcTarget;
        int nFrame = 0;
        std::vector<uint32_t> scaled;
    };
    void Main();
    void Compose(std::vector<uint32_t>& frame);

    std::vector<UstLogoAnim> m_anims;
    std::vector<uint32_t> m_still;
    int m_nWidth = 0, m_nHeight = 0, m_nOutWidth = 0, m_nOutHeight = 0;
    Show m_show;
    std::chrono::milliseconds m_period{33};
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_cv;
    bool m_bStop = false;
};

}  // namespace orv
