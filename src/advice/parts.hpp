/// \file
/// What a text holds: units, and the parts between them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace textio::advice {

[[nodiscard]] constexpr bool holds(std::u16string_view text, char16_t unit) noexcept {
    return text.find(unit) != std::u16string_view::npos;
}

[[nodiscard]] constexpr bool holds(std::u16string_view text, std::u16string_view part) noexcept {
    return text.find(part) != std::u16string_view::npos;
}

/// Whether the text holds one of the units.
[[nodiscard]] constexpr bool holds_any(std::u16string_view text,
                                       std::u16string_view units) noexcept {
    return text.find_first_of(units) != std::u16string_view::npos;
}

/// Whether the text holds nothing but such units.
[[nodiscard]] constexpr bool holds_only(std::u16string_view text,
                                        std::u16string_view units) noexcept {
    return text.find_first_not_of(units) == std::u16string_view::npos;
}

/// Units from `first` up to `last`.
struct UnitRange {
    char16_t first;
    char16_t last;

    [[nodiscard]] constexpr bool contains(char16_t unit) const noexcept {
        return first <= unit && unit <= last;
    }
};

/// Whether a unit is in one of some ranges.
template <class Ranges>
[[nodiscard]] constexpr bool is_in(const Ranges& ranges, char16_t unit) noexcept {
    return std::any_of(ranges.begin(), ranges.end(),
                       [unit](UnitRange range) { return range.contains(unit); });
}

/// Whether one of the parts between signs, of one or of several kinds, has a property; the parts
/// behind it are not asked. Parts can be empty; behind a sign that ends the text is none.
template <class Signs, class Property>
[[nodiscard]] bool any_part(std::u16string_view text, Signs signs, Property property) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(signs), text.size());
        if (property(text.substr(0, end))) {
            return true;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return false;
}

/// Calls `visit(at, end)` for each run of a unit in the text, from `at` up to `end`.
template <class Visit>
void for_each_run(std::u16string_view text, char16_t unit, Visit visit) {
    for (std::size_t at = text.find(unit); at != std::u16string_view::npos;) {
        const std::size_t end = std::min(text.find_first_not_of(unit, at), text.size());
        visit(at, end);
        at = text.find(unit, end);
    }
}

/// Whether one of the places where a unit stands in the text has a property.
template <class Property>
[[nodiscard]] bool any_place(std::u16string_view text, char16_t unit, Property property) {
    std::size_t at = text.find(unit);
    while (at != std::u16string_view::npos && !property(at)) {
        at = text.find(unit, at + 1);
    }
    return at != std::u16string_view::npos;
}

} // namespace textio::advice
