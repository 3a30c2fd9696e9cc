#pragma once
// Frames of an ANI32 file: at each offset a 4-byte coded size and the
// run-length coded rows.

#include "media/ani_file_player.h"

namespace orv {

class ANI32Player : public CAniFilePlayer {
public:
    explicit ANI32Player(const std::string& file) : CAniFilePlayer(file) {}
    // The file's bytes held in memory.
    explicit ANI32Player(std::vector<uint8_t> bytes) : CAniFilePlayer(std::move(bytes)) {}

    int ReadFrameTo(int index, uint32_t* out) override;

protected:
    uint64_t MinimumFrameBytes(uint32_t width, uint32_t height) const override;
};

}  // namespace orv
