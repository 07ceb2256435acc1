/// \file
/// What a number looks like before its marks are known.
#pragma once

#include "advice/grid.hpp"

#include <string_view>

namespace textio::advice {

/// Whether the whole of a trimmed text is a number with either decimal mark: digits, with or
/// without thousands separators, a sign, a currency sign or `<` in front, an exponent or `%`
/// behind.
[[nodiscard]] bool looks_like_number(std::u16string_view text) noexcept;

/// Whether the commas between the cells of a grid cut numbers in two: all cells are digits, behind
/// the last comma stand as many on every row, some with a 0 in front or all with a point behind,
/// and what stands between two commas are groups of three.
[[nodiscard]] bool cuts_numbers(const Grid& grid) noexcept;

} // namespace textio::advice
