/// \file
/// Names of columns in a line above the table: in a comment, or in a heading of another layout.
#pragma once

#include "advice/reading.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// The names that stand above a table.
struct NamesAbove {
    std::size_t line = SIZE_MAX;            ///< line of the text; `SIZE_MAX` if there are none
    std::vector<std::u16string_view> names; ///< one for each column; empty if they cannot be told
};

/// Looks at the few lines above `first_data_line`. `raw_lines` is the text read as one field a
/// line, without comments; `opener` opens the comments of the reading.
[[nodiscard]] NamesAbove find_names_above(const Reading& reading, const FieldArray& raw_lines,
                                          std::u16string_view opener, std::size_t first_data_line);

} // namespace textio::advice
