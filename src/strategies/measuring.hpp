/// \file
/// From the number of fields on each line to the figures of a valuation. There are two ways to the
/// same figures: one that looks at the count of each line, and one for samples of which all lines
/// with fields have as many, which can do without.
#pragma once

#include "textio/strategy_valuation.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace textio {

/// For each line, how many fields there are up to its end. At the last line's end there are more
/// than at the end of the line before.
using LineEnds = std::span<const std::size_t>;

/// How a header is sought.
struct HeaderSearch {
    bool is_on; ///< it is to be detected; otherwise the count in the record is the header
    bool is_space_separated; ///< fields are separated by blank space
};

/// Fills in the figures of the lines. `record` holds the header that was given or guessed before,
/// `SIZE_MAX` if there is none. Gives whether some of the lines are no header.
bool measure_counts(const std::vector<std::size_t>& counts, HeaderSearch search,
                    StrategyValuation& record);

/// The same, to the last bit, for lines of which each has `fields` fields or none, and the last has
/// some. Only where no header was guessed before that is to be detected now.
bool measure_regular_lines(LineEnds line_ends, std::size_t fields, HeaderSearch search,
                           StrategyValuation& record);

/// How many lines stand before the first line with fields.
std::size_t lines_before_filled_one(LineEnds line_ends);

// Each takes a header in entries of `diffs`, or lines, from the record, and gives the next figure.

/// The header, which is found if it is undecided.
std::size_t decided_header(const StrategyValuation& record, const std::vector<std::size_t>& diffs,
                           std::size_t h_min, bool is_space_separated);

/// The mean of `diffs` behind the header; infinity when the header takes up all of them.
double variation_behind_header(const StrategyValuation& record,
                               const std::vector<std::size_t>& diffs);

/// The most fields on a line behind the header, at least 1.
std::size_t most_fields(const std::vector<std::size_t>& counts, std::size_t header_lines);

} // namespace textio
