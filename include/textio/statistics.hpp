/// \file
/// The statistics behind a valuation: from the number of fields on each line to the typical count
/// and the number of header lines. Pure functions of their arguments; they throw only
/// `std::bad_alloc`.
///
/// Header counts come in two units here. `counts` has one entry per line of the text, empty lines
/// included; `diffs` has one entry per non-empty line.
#pragma once

#include "textio/export.hpp"

#include <cstddef>
#include <vector>

namespace textio::detection {

/// The number of lines with exactly one field at the start of `counts`: the smallest header worth
/// considering, in lines.
[[nodiscard]] TEXTIO_EXPORT std::size_t get_h_min(const std::vector<std::size_t>& counts);

/// The typical number of fields on the lines from `h_min` on; 1 if there are none.
[[nodiscard]] TEXTIO_EXPORT std::size_t get_modified_median(const std::vector<std::size_t>& counts,
                                                            std::size_t h_min);

/// The lower median of the entries of 2 or more, or 1 if there are none, or if they are fewer than
/// a third of the non-zero entries and those are 11 or more.
[[nodiscard]] TEXTIO_EXPORT std::size_t
modified_median(std::vector<std::size_t>::const_iterator first,
                std::vector<std::size_t>::const_iterator last);

/// The distance from `median` of every non-zero entry of `counts` down to the last entry that
/// equals `median`; empty if none does.
[[nodiscard]] TEXTIO_EXPORT std::vector<std::size_t>
absolute_differences(const std::vector<std::size_t>& counts, std::size_t median);

/// The header in entries of `diffs`, that is in non-empty lines: down to where the accumulated
/// distances from the top bend down most sharply, or to `h_min` if that is further down, but
/// without the zeros at its end, which can make it shorter than `h_min`. With `space_separated`, a
/// distance above 2 counts as 2, except the first.
///
/// `h_min` is given as it is, whatever its size, where nothing but zeros or mostly zeros stand
/// behind it, where the header would take more than two thirds of `diffs`, and of an empty `diffs`.
/// Of two entries, the first is the header if they differ, and else there is none.
[[nodiscard]] TEXTIO_EXPORT std::size_t get_header_lines(const std::vector<std::size_t>& diffs,
                                                         std::size_t h_min, bool space_separated);

/// Turns a header counted in non-empty lines into one counted in lines of the text, and lets it run
/// on over lines with at most one field. `empty_lines` are the indexes at which `counts` is 0,
/// ascending. The result can exceed the number of lines.
[[nodiscard]] TEXTIO_EXPORT std::size_t adjust_header(std::size_t header_lines,
                                                      const std::vector<std::size_t>& empty_lines,
                                                      const std::vector<std::size_t>& counts);

} // namespace textio::detection

/// Each of `values` weighted by `centre`, plus its neighbours by `left` and `right`; beyond either
/// end the end value stands in for the neighbour. Fewer than two values come back unchanged.
[[nodiscard]] TEXTIO_EXPORT std::vector<double>
filter_vector(const std::vector<double>& values, double left, double centre, double right);
