#pragma once
// What the two animation formats of the system share: the header, the
// table of frame offsets kept in memory, and a scratch for one frame's
// coded bytes. Each format adds its own frame record and decoder.

#include <memory>
#include <string>
#include <vector>

#include "media/media_file.h"
#include "media/media_player.h"

namespace orv {

class CAniFilePlayer : public MediaPlayer {
public:
    bool Open() override;
    // The offset of each frame as the file holds it.
    const std::vector<uint32_t>& Offsets() const { return m_offsets; }

protected:
    explicit CAniFilePlayer(const std::string& file) : m_strFile(file), m_file(file) {}
    explicit CAniFilePlayer(std::vector<uint8_t> bytes) : m_file(std::move(bytes)) {}

    // The bytes one whole frame's record needs at the very least; a file
    // too short to hold one is refused, which bounds the buffers by what
    // the file could hold.
    virtual uint64_t MinimumFrameBytes(uint32_t width, uint32_t height) const = 0;
    // Where the frame's record starts, or 0 when the frame cannot be read
    // (an index out of range, an offset inside the header or past the end).
    uint64_t RecordOffset(int index) const;
    // Room for one frame's coded bytes.
    virtual size_t ScratchSize() const { return PixelCount() * 8; }

    std::string m_strFile;
    CMediaFile m_file;
    std::vector<uint32_t> m_offsets;
    std::unique_ptr<uint8_t[]> m_pScratch;
};

}  // namespace orv
