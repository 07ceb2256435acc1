#pragma once

#include "detection.hpp"

#include <string>

namespace detect_layout {

/// The rules' layout of an input in words, a few lines, each with its line end.
[[nodiscard]] std::string describe(const Detection& detection);

/// The same on a single line, for a list of files.
[[nodiscard]] std::string summarise(const Detection& detection);

/// What an explanation of the rules' own answer has above it: nothing.
[[nodiscard]] inline std::string list_proposals(const Detection& /*detection*/) {
    return {};
}
[[nodiscard]] inline std::string rules_heading(const Detection& /*detection*/) {
    return {};
}

} // namespace detect_layout
