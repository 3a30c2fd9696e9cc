#include "media/ani32_player.h"

#include "media/ani32_codec.h"

namespace orv {

uint64_t ANI32Player::MinimumFrameBytes(uint32_t width, uint32_t height) const {
    return 4 + MinimumAni32FrameBytes(width, height);
}

int ANI32Player::ReadFrameTo(int index, uint32_t* out) {
    const uint64_t offset = RecordOffset(index);
    uint32_t coded = 0;
    if (!offset || !out || !m_file.ReadExact(offset, &coded, 4) || coded > ScratchSize()) return 0;
    // A record cut short by the file's end decodes as far as it goes.
    const size_t got = m_file.ReadAt(offset + 4, m_pScratch.get(), coded);
    return DecodeAni32Rows(m_pScratch.get(), got, out, m_info.nWidth, m_info.nHeight);
}

}  // namespace orv
