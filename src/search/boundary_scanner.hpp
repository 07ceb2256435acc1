/// \file
/// The search for the end of a field or a line.
#pragma once

#include "search/long_string.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/platform/delimiter_set.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace textio::parser {

/// Where a search ended, and the length of the string that it found there: 0 if it met a barrier or
/// the end of the text.
struct Boundary {
    std::size_t at;
    std::size_t length;
};

/// Searches for the next string of one set, but not past the next string of another.
struct BoundaryScanner {
    BoundaryScanner(std::shared_ptr<Delim> ends_set, std::shared_ptr<Delim> barriers_set);
    BoundaryScanner(const std::vector<std::u16string>& end_strings,
                    const std::vector<std::u16string>& barrier_strings);

    /// The first boundary of `text` from `from` on. Where a string of both sets starts, the barrier
    /// counts. An `end_of_text` ends the search at `from` and behind every unit that begins a
    /// string of either set without being followed by the rest of it; elsewhere it is run over.
    [[nodiscard]] Boundary find(const Field& text, std::size_t from) const noexcept;

    std::shared_ptr<Delim> ends;     ///< a match is reported with its length
    std::shared_ptr<Delim> barriers; ///< a match ends the search and is not reported
    SetInText ends_in_text;          ///< `ends`, as the search asks it
    SetInText barriers_in_text;      ///< `barriers`
    std::u16string stop_units;       ///< first units of both sets, ascending, each once
    UnitSearch search;               ///< finds the stop units
};

} // namespace textio::parser
