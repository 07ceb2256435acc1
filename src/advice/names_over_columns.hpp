/// \file
/// The words of a heading over columns that stand apart.
#pragma once

#include "advice/reading.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// A heading, cut as the columns below it are.
struct NamesOverColumns {
    std::vector<std::u16string_view> names; ///< one for each column; none if these overlap
    /// Whether most columns have a name, and most names begin or end where the values do: single
    /// blanks are enough between such names, and no sentence stands so.
    bool stand_flush = false;
};

/// Cuts `heading` as the lines from `first_data_line` on are. `raw_lines` is the text read as one
/// field a line.
[[nodiscard]] NamesOverColumns cut_heading(const Reading& reading, const FieldArray& raw_lines,
                                           std::size_t first_data_line,
                                           std::u16string_view heading);

} // namespace textio::advice
