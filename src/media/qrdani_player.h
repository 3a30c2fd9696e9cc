#pragma once
// Frames of a QRDANI file: at each offset a half size (the frame decodes to
// twice as many bytes), a coded size, and the Huffman coded bytes. A frame
// holds 8 bytes per pixel; consumers take its first width * height pixels
// as the picture and the rest as opaque data.

#include "media/ani_file_player.h"
#include "media/qrdani_codec.h"

namespace orv {

// More than the packed table of 256 lengths can take: two nibbles for each
// length and for each repeat count.
constexpr size_t QRD_TABLE_ROOM = 512;

class QRDANIPlayer : public CAniFilePlayer {
public:
    explicit QRDANIPlayer(const std::string& file) : CAniFilePlayer(file) {}
    // The file's bytes held in memory.
    explicit QRDANIPlayer(std::vector<uint8_t> bytes) : CAniFilePlayer(std::move(bytes)) {}

    int ReadFrameTo(int index, uint32_t* out) override;
    size_t GetFrameSize() const override { return PixelCount() * 8; }

protected:
    uint64_t MinimumFrameBytes(uint32_t width, uint32_t height) const override;
    // The frame's size, and room for the longest length table besides, so
    // that frames of a few pixels can be read too.
    size_t ScratchSize() const override { return GetFrameSize() + QRD_TABLE_ROOM; }

private:
    // Made once with the player, filled again for each frame's table.
    std::unique_ptr<CQrdHuffman> m_pCode = std::make_unique<CQrdHuffman>();
};

// Decodes one frame record held in memory (half size, coded size, code)
// into a buffer of frameSize bytes. 1 on success, else 0.
int DecodeQrdAniRecord(const uint8_t* record, size_t size, uint8_t* out, size_t frameSize,
                       CQrdHuffman& code);

}  // namespace orv
