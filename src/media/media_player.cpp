#include "media/media_player.h"

#include <new>

namespace orv {

size_t MediaPlayer::GetFrameSize() const {
    return PixelCount() * 4;
}

bool MediaPlayer::AllocateFrame() {
    m_pFrame.reset(new (std::nothrow) uint32_t[GetFrameSize() / 4]());
    return m_pFrame != nullptr;
}

const uint32_t* MediaPlayer::ReadFrame(int index) {
    if (!m_bOpen || !m_pFrame || index < 0 || index >= m_info.nFrames) return nullptr;
    return ReadFrameTo(index, m_pFrame.get()) ? m_pFrame.get() : nullptr;
}

}  // namespace orv
