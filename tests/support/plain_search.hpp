/// \file
/// What a search for units gives, found by looking at one unit after the other.
#pragma once

#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <cstddef>

namespace test {

/// As `UnitSearch::next`.
inline std::size_t plain_next(const textio::parser::UnitSet& set, const textio::Field& text, std::size_t from) {
    while (from < text.size && !set.contains(text.data[from])) {
        ++from;
    }
    return from;
}

/// As `UnitSearch::skip`.
inline std::size_t plain_skip(const textio::parser::UnitSet& set, const textio::Field& text, std::size_t from) {
    while (from < text.size && set.contains(text.data[from])) {
        ++from;
    }
    return from;
}

} // namespace test
