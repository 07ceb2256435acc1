/// \file
/// The lines of a text, as readings need them.
#pragma once

#include "ascii.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace textio::advice {

/// The text of a line of a sample that was read as one field a line; empty for a blank line.
[[nodiscard]] inline std::u16string_view text_of(const FieldArray& lines, std::size_t line) {
    const auto fields = lines.line(line);
    return fields.empty() ? std::u16string_view() : fields.front().view();
}

/// The line of the sample in which `at`, a place in the text, stands. Line 0 if it is in none.
[[nodiscard]] inline std::size_t line_of(const FieldArray& lines, const char16_t* at) {
    const auto behind = std::upper_bound(
        lines.fields.begin(), lines.fields.end(), at,
        [](const char16_t* place, const Field& line) { return place < line.data; });
    if (behind == lines.fields.begin()) {
        return 0;
    }
    const auto field = static_cast<std::size_t>(behind - lines.fields.begin() - 1);
    return static_cast<std::size_t>(
        std::upper_bound(lines.line_ends.begin(), lines.line_ends.end(), field) -
        lines.line_ends.begin());
}

constexpr bool is_blank(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\u00A0';
}

/// `text` without blanks at its ends.
[[nodiscard]] constexpr std::u16string_view trimmed(std::u16string_view text) noexcept {
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && is_blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// The length of `text` without the blanks at its end.
[[nodiscard]] constexpr std::size_t filled_length(std::u16string_view text) noexcept {
    while (!text.empty() && is_blank(text.back())) {
        text.remove_suffix(1);
    }
    return text.size();
}

/// A letter of any script, as far as can be told without tables.
constexpr bool is_letter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= 0xC0 && unit != 0xD7 && unit != 0xF7 && !(unit >= 0x2000 && unit <= 0x2BFF) &&
            !(unit >= 0x3000 && unit <= 0x303F));
}

[[nodiscard]] inline bool has_letter(std::u16string_view text) noexcept {
    return std::any_of(text.begin(), text.end(), is_letter);
}

/// Whether a line is a ruler or the like: three or more signs, but no letter and no digit.
[[nodiscard]] inline bool says_nothing(std::u16string_view line) noexcept {
    return line.size() > 2 && std::none_of(line.begin(), line.end(), [](char16_t unit) {
               return ascii::is_digit(unit) || is_letter(unit);
           });
}

} // namespace textio::advice
