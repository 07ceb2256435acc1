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

/// Reads a text from its start on, and writes some of it.
class Scan {
public:
    Scan(std::string_view text, char* to) : text_(text), to_(to) {}

    /// Takes digits over; gives their number.
    std::size_t take_digits() {
        const std::size_t begin = at_;
        while (at_ < text_.size() && is_digit(text_[at_])) {
            *to_++ = text_[at_++];
        }
        return at_ - begin;
    }

    void take(std::size_t count) {
        for (const std::size_t end = at_ + count; at_ < end;) {
            *to_++ = text_[at_++];
        }
    }

    /// Whether `sign` comes next, which is passed then.
    bool pass(std::string_view sign) {
        const bool is_next = is_ahead(sign);
        at_ += is_next ? sign.size() : 0;
        return is_next;
    }

    /// Takes over the groups of three digits that come next, each behind a separator.
    void take_groups(std::string_view separator) {
        constexpr std::size_t group = 3;
        while (is_ahead(separator) && digits_at(text_, at_ + separator.size()) == group) {
            at_ += separator.size();
            take(group);
        }
    }

    void write(char byte) { *to_++ = byte; }
    [[nodiscard]] std::size_t at() const { return at_; }
    [[nodiscard]] const char* to() const { return to_; }

private:
    [[nodiscard]] bool is_ahead(std::string_view sign) const {
        return !sign.empty() && at_ < text_.size() && text_[at_] == sign.front() &&
               (sign.size() == 1 || text_.substr(at_).starts_with(sign));
    }

    std::string_view text_;
    std::size_t at_ = 0;
    char* to_;
};

std::string in_utf8(char16_t mark) {
    return mark == 0 ? std::string() : to_utf8({&mark, 1});
}

} // namespace

PlainNumbers::PlainNumbers(char16_t decimal_mark, char16_t thousands_separator)
    : decimal_(in_utf8(decimal_mark == 0 ? u'.' : decimal_mark)),
      thousands_(in_utf8(thousands_separator)) {}

std::string_view PlainNumbers::plain(std::string_view text, std::string& buffer) const {
    constexpr std::size_t most_leading_digits = 3;
    if (buffer.size() < text.size() + 1) {
        buffer.resize(text.size() + 1);
    }
    Scan scan(text, buffer.data());
    scan.take(sign_at(text, 0));
    std::size_t digits = scan.take_digits();
    if (scan.at() == text.size()) {
        return text; // without any mark
    }
    if (digits >= 1 && digits <= most_leading_digits) {
        scan.take_groups(thousands_);
    }
    if (scan.pass(decimal_)) {
        scan.write('.');
        digits += scan.take_digits();
    }
    scan.take(exponent_at(text, scan.at()));
    const auto size = static_cast<std::size_t>(scan.to() - buffer.data());
    return digits > 0 && scan.at() == text.size() ? std::string_view(buffer.data(), size) : text;
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
