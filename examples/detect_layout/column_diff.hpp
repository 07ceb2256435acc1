#pragma once

#include "textio/advice.hpp"

#include <string>
#include <vector>

namespace detect_layout {

/// What sets the columns of one table apart from those of another, a line for each difference:
/// columns removed, added, renamed, moved, and other kinds of values. Columns are the same by name
/// or, if a table has no names, by place. A column without values may hold anything.
[[nodiscard]] std::vector<std::string> column_differences(const textio::advice::Proposal& before,
                                                          const textio::advice::Proposal& after);

} // namespace detect_layout
