#pragma once
// A numbered source of 32-bit frames of one animation file, whatever its
// format. The animation object and live playout see only this interface.
// A source serves one thread at a time; two consumers need two sources.
// Every buffer is made at Open, so reading a frame allocates nothing.

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orv {

#pragma pack(push, 1)
// What GetInfo answers: the frame count, frames per second, width, height.
struct UstMediaInfo {
    int32_t nFrames;
    int32_t nFps;
    int32_t nWidth;
    int32_t nHeight;
};
#pragma pack(pop)
static_assert(sizeof(UstMediaInfo) == 16);

// The animation formats play at this rate; the files do not store one.
constexpr int ANIMATION_FPS = 30;

class MediaPlayer {
public:
    MediaPlayer() = default;
    virtual ~MediaPlayer() = default;
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    // True when the file has at least one frame.
    virtual bool Open() = 0;
    // Decodes the frame into the caller's block of GetFrameSize() bytes. 1
    // on success, else 0 (the block may then be partly written).
    virtual int ReadFrameTo(int index, uint32_t* out) = 0;
    // The source's own frame buffer holding the frame, or null. Valid until
    // the next read. The picture is its first width * height pixels.
    virtual const uint32_t* ReadFrame(int index);
    // Bytes of one frame as ReadFrameTo writes it.
    virtual size_t GetFrameSize() const;
    const UstMediaInfo* GetInfo() const { return &m_info; }

    bool IsOpen() const { return m_bOpen != 0; }

protected:
    // Makes the frame buffer of GetFrameSize() bytes, zeroed.
    bool AllocateFrame();
    size_t PixelCount() const {
        return static_cast<size_t>(m_info.nWidth) * static_cast<size_t>(m_info.nHeight);
    }

    UstMediaInfo m_info{};
    int32_t m_bOpen = 0;
    std::unique_ptr<uint32_t[]> m_pFrame;
};

}  // namespace orv
