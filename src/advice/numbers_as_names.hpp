/// \file
/// Names of columns that are numbers, or that are numbered.
#pragma once

#include "advice/grid.hpp"

#include <string_view>
#include <vector>

namespace textio::advice {

/// Whether the numbers of `row` name columns: most are years, over columns that hold none, or they
/// count on, behind a cell that is no number, as no row of `grid` does.
[[nodiscard]] bool names_by_numbers(const std::vector<std::u16string_view>& row, const Grid& grid);

/// Whether `row` numbers its columns with one word, such as `V1`, `V2`, `V3`, that no cell of
/// `grid` begins with.
[[nodiscard]] bool names_by_numbering(const std::vector<std::u16string_view>& row,
                                      const Grid& grid);

} // namespace textio::advice
