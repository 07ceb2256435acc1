/// \file
/// Names of a table in a row that has one field fewer than the others.
#pragma once

#include "advice/names_above.hpp"
#include "advice/reading.hpp"
#include "textio/field.hpp"

#include <cstddef>

namespace textio::advice {

/// Looks at the filled line above `first_data_line`. Where rows begin with a name of their own,
/// many programs leave that column without one; where rows end with a delimiter, there is a last
/// column of nothing. `raw_lines` is the text read as one field a line.
[[nodiscard]] NamesAbove find_names_one_short(const Reading& reading, const FieldArray& raw_lines,
                                              std::size_t first_data_line);

} // namespace textio::advice
