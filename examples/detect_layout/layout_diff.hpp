#pragma once

#include "advised.hpp"

#include <string>
#include <vector>

namespace detect_layout {

/// What sets the layout of one input apart from that of another, a line for each difference; none
/// if they are laid out alike. What is only not to be seen in one of them, such as a decimal mark
/// where all numbers are whole, is no difference.
[[nodiscard]] std::vector<std::string> layout_differences(const Advised& before,
                                                          const Advised& after);

} // namespace detect_layout
