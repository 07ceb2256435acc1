#include "plain_numbers.hpp"

#include "unicode.hpp"

#include <cstddef>

namespace detect_layout {

namespace {

bool is_digit(char byte) {
    return byte >= '0' && byte <= '9';
}

std::size_t digits_at(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && is_digit(text[end])) {
        ++end;
    }
    return end - at;
}

std::size_t sign_at(std::string_view text, std::size_t at) {
    return at < text.size() && (text[at] == '-' || text[at] == '+') ? 1 : 0;
}

/// The size of the exponent at `at`: 0 if there is none.
std::size_t exponent_at(std::string_view text, std::size_t at) {
    if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) {
        return 0;
    }
    const std::size_t sign = sign_at(text, at + 1);
    const std::size_t digits = digits_at(text, at + 1 + sign);
    return digits == 0 ? 0 : 1 + sign + digits;
}

/// The groups of three digits at `at`, each behind a separator, are added to `digits`. Gives their
/// end.
std::size_t take_groups(std::string_view text, std::size_t at, std::string_view separator,
                        std::string& digits) {
    constexpr std::size_t group = 3;
    while (!separator.empty() && text.substr(at).starts_with(separator) &&
           digits_at(text, at + separator.size()) == group) {
        digits += text.substr(at + separator.size(), group);
        at += separator.size() + group;
    }
    return at;
}

std::string in_utf8(char16_t mark) {
    return mark == 0 ? std::string() : to_utf8({&mark, 1});
}

} // namespace

PlainNumbers::PlainNumbers(char16_t decimal_mark, char16_t thousands_separator)
    : decimal_(in_utf8(decimal_mark == 0 ? u'.' : decimal_mark)),
      thousands_(in_utf8(thousands_separator)) {}

std::string_view PlainNumbers::plain(std::string_view text, std::string& buffer) const {
    constexpr std::size_t most_leading_digits = 3;
    const std::size_t sign = sign_at(text, 0);
    const std::size_t leading = digits_at(text, sign);
    std::size_t digits = leading;
    std::size_t at = sign + leading;
    buffer.assign(text.substr(0, at));
    if (leading >= 1 && leading <= most_leading_digits) {
        at = take_groups(text, at, thousands_, buffer);
    }
    if (text.substr(at).starts_with(decimal_)) {
        at += decimal_.size();
        const std::size_t fraction = digits_at(text, at);
        buffer += '.';
        buffer += text.substr(at, fraction);
        at += fraction;
        digits += fraction;
    }
    const std::size_t exponent = exponent_at(text, at);
    buffer += text.substr(at, exponent);
    return digits > 0 && at + exponent == text.size() ? std::string_view(buffer) : text;
}

std::string_view json_number(std::string_view text, std::string& buffer) {
    const bool is_negative = text.starts_with('-');
    const std::size_t sign = sign_at(text, 0);
    const std::size_t leading = digits_at(text, sign);
    std::size_t at = sign + leading;
    std::size_t fraction = 0;
    const bool has_point = at < text.size() && text[at] == '.';
    if (has_point) {
        fraction = digits_at(text, at + 1);
        at += 1 + fraction;
    }
    const std::size_t exponent = exponent_at(text, at);
    const bool is_name = leading > 1 && text[sign] == '0';
    if (leading + fraction == 0 || at + exponent != text.size() || is_name) {
        return {};
    }
    if (sign == (is_negative ? 1 : 0) && leading > 0 && (!has_point || fraction > 0)) {
        return text;
    }
    buffer.assign(is_negative ? "-" : "");
    buffer += leading == 0 ? "0" : text.substr(sign, leading);
    if (fraction > 0) {
        buffer += text.substr(sign + leading, 1 + fraction);
    }
    buffer += text.substr(at);
    return buffer;
}

} // namespace detect_layout
