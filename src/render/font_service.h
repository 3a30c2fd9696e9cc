#pragma once
// Font lookups through fontconfig.

#include <string>

namespace orv {

// The family that the system gives for its plain interface font, the one new
// text starts with. Falls back to "DejaVu Sans" when fontconfig has no answer.
std::u16string DefaultGuiFaceName();

}  // namespace orv
