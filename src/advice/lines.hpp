/// \file
/// The lines of a text, as readings need them.
#pragma once

#include "advice/parts.hpp"
#include "ascii.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace textio::advice {

/// The text of a line of a sample that was read as one field a line; empty for a blank line.
[[nodiscard]] inline std::u16string_view text_of(const FieldArray& lines, std::size_t line) {
    const auto fields = lines.line(line);
    return fields.empty() ? std::u16string_view() : fields.front().view();
}

/// Calls `visit(line, text)` for each such line from `first` up to `end` that is not blank.
template <class Visit>
void for_each_filled_line(const FieldArray& lines, std::size_t first, std::size_t end,
                          Visit visit) {
    for (std::size_t line = first; line < end; ++line) {
        const std::u16string_view text = text_of(lines, line);
        if (!text.empty()) {
            visit(line, text);
        }
    }
}

/// Calls `visit(line, fields)` for each row of a sample: a line with fields.
template <class Visit>
void for_each_row(const FieldArray& sample, Visit visit) {
    const std::span<const Field> fields = sample.fields;
    std::size_t begin = 0;
    for (std::size_t line = 0; line < sample.line_ends.size(); ++line) {
        const std::size_t end = sample.line_ends[line];
        if (end != begin) {
            visit(line, fields.subspan(begin, end - begin));
        }
        begin = end;
    }
}

/// How many fields the lines above a line have; all if the sample has no such line.
[[nodiscard]] inline std::size_t fields_above(const FieldArray& sample, std::size_t line) {
    const std::size_t lines = std::min(line, sample.line_count());
    return lines == 0 ? 0 : sample.line_ends[lines - 1];
}

/// Where the last field of a sample ends; null if it has none.
[[nodiscard]] inline const char16_t* end_of(const FieldArray& sample) {
    return sample.fields.empty() ? nullptr : sample.fields.back().data + sample.fields.back().size;
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

/// Whether a place is in a line, or right behind it.
[[nodiscard]] constexpr bool reaches(std::u16string_view line, const char16_t* place) noexcept {
    return line.data() <= place && place <= line.data() + line.size();
}

constexpr bool is_blank(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\u00A0';
}

/// `text` without the blanks in front.
[[nodiscard]] constexpr std::u16string_view from_first_unit(std::u16string_view text) noexcept {
    while (!text.empty() && is_blank(text.front())) {
        text.remove_prefix(1);
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

/// `text` without blanks at its ends.
[[nodiscard]] constexpr std::u16string_view trimmed(std::u16string_view text) noexcept {
    text = from_first_unit(text);
    return text.substr(0, filled_length(text));
}

/// Whether `text` is nothing but blanks.
[[nodiscard]] constexpr bool is_blank_text(std::u16string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), is_blank);
}

/// A letter of any script, as far as can be told without tables.
constexpr bool is_letter(char16_t unit) {
    constexpr char16_t first_beyond_ascii = 0xC0;
    constexpr std::array<UnitRange, 4> signs{
        {{0xD7, 0xD7}, {0xF7, 0xF7}, {0x2000, 0x2BFF}, {0x3000, 0x303F}}};
    return ascii::is_letter(unit) || (unit >= first_beyond_ascii && !is_in(signs, unit));
}

constexpr bool is_letter_or_digit(char16_t unit) {
    return is_letter(unit) || ascii::is_digit(unit);
}

[[nodiscard]] inline bool has_letter(std::u16string_view text) noexcept {
    return std::any_of(text.begin(), text.end(), is_letter);
}

/// Whether a line is a ruler or the like: three or more signs, but no letter and no digit.
[[nodiscard]] inline bool says_nothing(std::u16string_view line) noexcept {
    return line.size() > 2 && std::none_of(line.begin(), line.end(), is_letter_or_digit);
}

[[nodiscard]] inline bool has_digit(std::u16string_view text) noexcept {
    return std::any_of(text.begin(), text.end(), ascii::is_digit);
}

} // namespace textio::advice
