/// \file
/// Sets of strings that a text can be searched for, and how they are made from lists.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace textio {

/// A set of strings. Made by `get_or_create_delim`, shared, and only read from then on.
struct TEXTIO_EXPORT Delim {
    Delim() = default;
    Delim(const Delim&) = delete;
    Delim& operator=(const Delim&) = delete;

    /// The length in code units of the string of the set that starts at `position` of `text`, or 0.
    /// Of several that start there, the first in the set's order counts.
    [[nodiscard]] std::size_t match_at(const Field& text, std::size_t position) const noexcept {
        const char16_t unit = text.unit_at(position);
        return single ? (unit == only_string.front() ? 1 : 0) : match_any(text, position, unit);
    }

    std::vector<std::u16string> strings;   ///< the strings, in the set's own order
    std::u16string only_string;            ///< with `single`: the one string
    bool single = false;                   ///< the set is one string of one code unit
    std::span<const char16_t> first_units; ///< first units, ascending, each once; null for none
    std::u16string first_unit_storage;     ///< what `first_units` views

private:
    friend TEXTIO_EXPORT std::shared_ptr<Delim>
    get_or_create_delim(const std::vector<std::u16string>& strings);

    [[nodiscard]] std::size_t match_any(const Field& text, std::size_t position,
                                        char16_t unit) const noexcept;
    [[nodiscard]] TEXTIO_NO_EXPORT std::size_t match_many(std::u16string_view rest) const noexcept;
    TEXTIO_NO_EXPORT void sort_strings();

    std::vector<std::size_t> ascending_;  ///< of a large set: the strings' indexes, sorted
    std::vector<std::size_t> beginnings_; ///< for each: the place of the longest it begins with
};

/// A set of the strings of `strings`, never an empty pointer. Empty strings are dropped and
/// repeated ones kept once; longer strings come first, so that CR LF is found before CR. A set
/// without strings matches nowhere.
TEXTIO_EXPORT std::shared_ptr<Delim>
get_or_create_delim(const std::vector<std::u16string>& strings);

} // namespace textio
