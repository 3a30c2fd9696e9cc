#include "playout/logo_animator.h"

#include <algorithm>

#include "media/media_factory.h"
#include "objects/ani_object.h"
#include "project/page_manager.h"
#include "render/pixels.h"

namespace orv {

namespace {

constexpr int LOGO_INTERPOLATION = 2;  // bilinear

}  // namespace

bool CLogoAnimator::Start(const CPageManager& page, std::vector<uint32_t> still, int width,
                          int height, int outWidth, int outHeight, Show show,
                          std::chrono::milliseconds period) {
    Stop();
    if (width < 1 || height < 1 || outWidth < 1 || outHeight < 1 ||
        still.size() != static_cast<size_t>(width) * height)
        return false;
    std::vector<UstAniPlay> list;
    page.CollectAnimations(list, width, height);
    for (const UstAniPlay& entry : list) {
        const UstRect r = entry.rcTarget;
        const UstRect frame{0, 0, width, height};
        auto player = CreateMediaPlayer(entry.strFile);
        if (!player || r.Width() < 1 || r.Height() < 1 || !Meets(r, frame)) continue;
        UstLogoAnim a;
        a.pPlayer = std::move(player);
        a.rcTarget = r;
        a.scaled.assign(static_cast<size_t>(r.Width()) * r.Height(), 0u);
        m_anims.push_back(std::move(a));
    }
    if (m_anims.empty()) return false;
    m_still = std::move(still);
    m_nWidth = width, m_nHeight = height, m_nOutWidth = outWidth, m_nOutHeight = outHeight;
    m_show = std::move(show);
    m_period = period;
    m_bStop = false;
    m_thread = std::thread([this] { Main(); });
    return true;
}

void CLogoAnimator::Stop() {
    if (m_thread.joinable()) {
        {
            std::lock_guard lock(m_mutex);
            m_bStop = true;
        }
        m_cv.notify_all();
        m_thread.join();
    }
    m_anims.clear();
}

void CLogoAnimator::Main() {
    std::vector<uint32_t> frame(m_still.size());
    auto next = std::chrono::steady_clock::now();
    for (;;) {
        Compose(frame);
        std::vector<uint32_t> picture(static_cast<size_t>(m_nOutWidth) * m_nOutHeight);
        ScalePixelRect(picture.data(), {0, 0, m_nOutWidth, m_nOutHeight}, frame.data(),
                       {0, 0, m_nWidth, m_nHeight}, LOGO_INTERPOLATION);
        m_show(std::move(picture), m_nOutWidth, m_nOutHeight);
        next += m_period;
        std::unique_lock lock(m_mutex);
        if (m_cv.wait_until(lock, next, [this] { return m_bStop; })) return;
    }
}

// A frame the file cannot give leaves the last one standing; what lies
// off the picture is cut away.
void CLogoAnimator::Compose(std::vector<uint32_t>& frame) {
    frame = m_still;
    for (UstLogoAnim& a : m_anims) {
        const UstMediaInfo& info = *a.pPlayer->GetInfo();
        if (const uint32_t* pixels = a.pPlayer->ReadFrame(a.nFrame))
            ScalePixelRect(a.scaled.data(), {0, 0, a.rcTarget.Width(), a.rcTarget.Height()}, pixels,
                           {0, 0, info.nWidth, info.nHeight}, LOGO_INTERPOLATION);
        a.nFrame = (a.nFrame + 1) % std::max(1, info.nFrames);
        const UstRect& r = a.rcTarget;
        const UstRect target{std::max(r.left, 0), std::max(r.top, 0), std::min(r.right, m_nWidth),
                             std::min(r.bottom, m_nHeight)};
        BlendPixelRect(frame.data(), m_nWidth, target, a.scaled.data(), r.Width(),
                       Offset(target, -r.left, -r.top));
    }
}

}  // namespace orv
