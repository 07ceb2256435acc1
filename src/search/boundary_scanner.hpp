/// \file
/// The search for the end of a field or a line.
#pragma once

#include "search/guarded_delim.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <cstddef>

namespace textio::parser {

/// Where a search ended, and the length of the string that it found there: 0 if it met a barrier or
/// the end of the text.
struct Boundary {
    std::size_t at;
    std::size_t length;
};

/// Searches for the next string of `ends`, but not past the next string of `barriers`, if that is
/// not null. `stops` finds the first units of both.
///
/// Gives the first boundary of `text` from `from` on. Where a string of both sets starts, the
/// barrier counts. An `end_of_text` ends the search at `from` and behind every unit that begins a
/// string of either set without being followed by the rest of it; elsewhere it is run over.
[[nodiscard]] Boundary find_boundary(const UnitSearch& stops, const GuardedDelim& ends,
                                     const GuardedDelim* barriers, const Field& text,
                                     std::size_t from) noexcept;

} // namespace textio::parser
