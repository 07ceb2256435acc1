#pragma once

#include "detection.hpp"

#include <string>

namespace detect_layout {

/// The layout of an input in words, a few lines, each with its line end.
[[nodiscard]] std::string describe(const Detection& detection);

/// The same on a single line, for a list of files.
[[nodiscard]] std::string summarise(const Detection& detection);

} // namespace detect_layout
