/// \file
/// Whether a text names a column, as far as words can tell.
#pragma once

#include "advice/grid.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// A cell without the blanks around it, and without the usual quotes or a pair of `quote`.
[[nodiscard]] std::u16string_view bare(std::u16string_view cell, char16_t quote = u'"') noexcept;

/// Whether `row` names the columns of a table of text alone, whose rows further down are `grid`:
/// names are all different, come again in no row, and differ from the values in their length, their
/// case, or their digits. A row may have columns more than the grid, which are not looked at.
[[nodiscard]] bool names_text_columns(const std::vector<std::u16string_view>& row,
                                      const Grid& grid);

/// Whether `row` begins with a key and its colon as most rows of `grid` do: it is one of them.
[[nodiscard]] bool begins_with_key(const std::vector<std::u16string_view>& row, const Grid& grid);

} // namespace textio::advice
