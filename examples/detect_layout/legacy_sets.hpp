#pragma once

#include "character_set.hpp"

#include <string_view>

namespace detect_layout {

/// The character set from before Unicode that `bytes` are most likely in. Each set that is known
/// here is tried: what counts is how much of the bytes it decodes, and how much what comes out
/// looks like words of a language that was written in it.
[[nodiscard]] CharacterSet most_likely_legacy_set(std::string_view bytes);

} // namespace detect_layout
