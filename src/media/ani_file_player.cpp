#include "media/ani_file_player.h"

#include <new>

#include "media/ani32_codec.h"

namespace orv {

bool CAniFilePlayer::Open() {
    UstAniFileHeader head{};
    if (m_bOpen || !m_file.ReadExact(0, &head, sizeof head)) return false;
    const uint32_t count = head.nFrames, width = head.nWidth, height = head.nHeight;
    if (count == 0 || count > INT32_MAX || width == 0 || height == 0 || width > MAX_ANI_EXTENT ||
        height > MAX_ANI_EXTENT)
        return false;
    const uint64_t tableEnd = sizeof head + uint64_t{count} * 4;
    if (tableEnd + MinimumFrameBytes(width, height) > m_file.Size()) return false;
    std::vector<uint32_t> offsets(count);
    if (!m_file.ReadExact(sizeof head, offsets.data(), size_t{count} * 4)) return false;

    m_info = {static_cast<int32_t>(count), ANIMATION_FPS, static_cast<int32_t>(width),
              static_cast<int32_t>(height)};
    m_pScratch.reset(new (std::nothrow) uint8_t[ScratchSize()]);
    if (!m_pScratch || !AllocateFrame()) {
        m_info = {};
        m_pScratch.reset();
        return false;
    }
    m_offsets = std::move(offsets);
    m_bOpen = 1;
    return true;
}

uint64_t CAniFilePlayer::RecordOffset(int index) const {
    if (!m_bOpen || index < 0 || index >= m_info.nFrames) return 0;
    const uint64_t offset = m_offsets[static_cast<size_t>(index)];
    // Skipped frames of a conversion keep offset 0, inside the header.
    const uint64_t tableEnd = sizeof(UstAniFileHeader) + m_offsets.size() * 4;
    if (offset < tableEnd || offset >= m_file.Size()) return 0;
    return offset;
}

}  // namespace orv
