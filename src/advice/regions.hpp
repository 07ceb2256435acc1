/// \file
/// Where in a text a table of fixed positions may begin and end.
#pragma once

#include "textio/field.hpp"

#include <cstddef>
#include <vector>

namespace textio::advice {

/// A part of the lines of a sample.
struct Region {
    std::size_t first = 0; ///< its first line
    std::size_t end = 0;   ///< one past its last line

    bool operator==(const Region&) const = default;
};

/// The regions worth a look.
struct Regions {
    std::vector<Region> tables; ///< where columns are looked for, a few at the most
    std::vector<Region> rulers; ///< each from a line of dashes or bars to the filled line below
};

/// Finds them: from the first line and the second on, below rulers, from where the lines settle to
/// one length, and the largest block between blank lines with and without its first line.
[[nodiscard]] Regions find_regions(const FieldArray& lines);

} // namespace textio::advice
