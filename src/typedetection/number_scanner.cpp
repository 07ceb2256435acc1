#include "typedetection/number_scanner.hpp"

#include "ascii.hpp"
#include "textio/type_analyzer.hpp"

#include <algorithm>

namespace zentor::io::text::typedetection {

namespace {

namespace ascii = textio::ascii;

constexpr bool is_imaginary_unit(char16_t unit) {
    return unit == u'i' || unit == u'j';
}

constexpr bool is_hexadecimal_digit(char16_t unit) {
    const char16_t upper = ascii::to_upper(unit);
    return ascii::is_digit(unit) || (upper >= u'A' && upper <= u'F');
}

constexpr bool is_binary_digit(char16_t unit) {
    return unit == u'0' || unit == u'1';
}

/// The position after the exponent at `position`, or `position` if no whole one stands there.
std::size_t skip_exponent(std::u16string_view text, std::size_t position,
                          std::u16string_view exponent_characters) {
    if (position == text.size() ||
        exponent_characters.find(text[position]) == std::u16string_view::npos) {
        return position;
    }
    const std::size_t digits = ascii::skip_sign(text, position + 1);
    const std::size_t end = ascii::skip_digits(text, digits);
    return end > digits ? end : position;
}

bool spells_number_at(std::u16string_view text, std::size_t position) {
    const std::u16string_view word = text.substr(position, 3);
    return ascii::equals_ignoring_case(word, u"NaN") || ascii::equals_ignoring_case(word, u"Inf");
}

template <class IsDigit>
bool is_prefix_and_digits(std::u16string_view text, std::u16string_view prefix, IsDigit is_digit) {
    if (!ascii::equals_ignoring_case(text.substr(0, prefix.size()), prefix)) {
        return false;
    }
    const std::u16string_view digits = text.substr(prefix.size());
    return std::all_of(digits.begin(), digits.end(), is_digit);
}

} // namespace

std::size_t scan_real(std::u16string_view text, std::size_t start,
                      std::u16string_view exponent_characters) {
    const std::size_t mantissa = ascii::skip_sign(text, start);
    std::size_t end = ascii::skip_digits(text, mantissa);
    std::size_t digits = end - mantissa;
    if (end < text.size() && text[end] == u'.') {
        const std::size_t fraction = end + 1;
        end = ascii::skip_digits(text, fraction);
        digits += end - fraction;
    }
    if (digits > 0) {
        return skip_exponent(text, end, exponent_characters);
    }
    return spells_number_at(text, mantissa) ? mantissa + 3 : start;
}

std::size_t scan_number(std::u16string_view text, std::size_t start,
                        std::u16string_view exponent_characters) {
    const std::size_t end = scan_real(text, start, exponent_characters);
    if (end == start || end == text.size()) {
        return end;
    }
    if (is_imaginary_unit(text[end])) {
        return end + 1;
    }
    if (!ascii::is_sign(text[end])) {
        return end;
    }
    const std::size_t second_end = scan_real(text, end, exponent_characters);
    const bool complex = second_end < text.size() && is_imaginary_unit(text[second_end]);
    return complex ? second_end + 1 : end;
}

bool is_number(std::u16string_view text, std::u16string_view exponent_characters) {
    const std::size_t real_end = scan_real(text, 0, exponent_characters);
    if (real_end == text.size()) {
        return true;
    }
    const std::size_t unit_at = text.size() - 1;
    if (!is_imaginary_unit(text[unit_at])) {
        return false;
    }

    // A pure imaginary number has no second part: this scan stays at its unit.
    const std::size_t imaginary_end = scan_real(text, real_end, exponent_characters);
    const bool implied_one = imaginary_end + 1 == unit_at && ascii::is_sign(text[imaginary_end]);
    return imaginary_end == unit_at || implied_one;
}

bool starts_with_spelled_number(std::u16string_view text) {
    return spells_number_at(text, ascii::skip_sign(text, 0));
}

bool HexadecimalScanner::matches(const textio::Field& text) const noexcept {
    return is_prefix_and_digits(text.view(), typeconversion::HexNumberSystem::Prefix,
                                is_hexadecimal_digit);
}

bool BinaryScanner::matches(const textio::Field& text) const noexcept {
    return is_prefix_and_digits(text.view(), typeconversion::BinaryNumberSystem::Prefix,
                                is_binary_digit);
}

} // namespace zentor::io::text::typedetection
