#pragma once
// The test card: what an operator sends to check the chain from the output
// to the switcher, fill and key alike.

#include <cstdint>
#include <vector>

namespace orv {

// Seven bars at three quarters over the upper two thirds; below, a key ramp
// of white from transparent at the left to full at the right. Premultiplied.
std::vector<uint32_t> MakeTestCard(int width, int height);

}  // namespace orv
