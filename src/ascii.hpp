#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Character classes of field text. ASCII alone counts: no locale, no Unicode tables.
namespace textio::ascii {

constexpr bool is_digit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool is_sign(char16_t unit) {
    return unit == u'+' || unit == u'-';
}

constexpr bool is_upper(char16_t unit) {
    return unit >= u'A' && unit <= u'Z';
}

constexpr bool is_letter(char16_t unit) {
    return is_upper(unit) || (unit >= u'a' && unit <= u'z');
}

constexpr char16_t to_upper(char16_t unit) {
    constexpr int case_distance = u'a' - u'A';
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - case_distance) : unit;
}

constexpr bool equals_ignoring_case(std::u16string_view left, std::u16string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char16_t a, char16_t b) { return to_upper(a) == to_upper(b); });
}

/// The position of the first unit at or after `position` that is no digit.
constexpr std::size_t skip_digits(std::u16string_view text, std::size_t position) {
    while (position < text.size() && is_digit(text[position])) {
        ++position;
    }
    return position;
}

/// `position`, or one further if a sign stands there.
constexpr std::size_t skip_sign(std::u16string_view text, std::size_t position) {
    return position < text.size() && is_sign(text[position]) ? position + 1 : position;
}

} // namespace textio::ascii
