#pragma once

#include "textio/advice.hpp"

#include <string>
#include <vector>

namespace detect_layout {

/// What the columns of a table are to be called, in UTF-8: each by its own name, or `column_3` if
/// the third one has none. Of a name that occurs again, `name_2` and so on.
[[nodiscard]] std::vector<std::string> column_names(const textio::advice::Proposal& proposal);

/// The same for columns behind the last one, which a record may have: `column_7` for the seventh.
[[nodiscard]] std::string name_of_unnamed(std::size_t index);

} // namespace detect_layout
