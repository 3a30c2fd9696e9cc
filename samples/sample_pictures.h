#pragma once
// Pictures the sample page shows, drawn by code so that no image file has to
// travel with the program.

#include <cstdint>

#include "render/tga_file.h"

namespace orv {

// A round station emblem whose rim fades into transparency: a picture that
// brings its own alpha.
UstPixelImage MakeEmblemPicture(int size);

// A sun and a cloud shot against a green screen of exactly this colour,
// for keying.
constexpr uint32_t SAMPLE_SCREEN_GREEN = 0xFF00FF00u;
UstPixelImage MakeGreenScreenPicture(int width, int height);

}  // namespace orv
