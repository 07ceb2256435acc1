#include "plain_numbers.hpp"

#include <cstddef>

namespace detect_layout {

namespace {

constexpr std::size_t group_digits = 3; ///< between two separators of thousands

template <typename Unit>
bool is_digit(Unit unit) {
    return unit >= Unit{'0'} && unit <= Unit{'9'};
}

template <typename Unit>
std::size_t digits_at(std::basic_string_view<Unit> text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && is_digit(text[end])) {
        ++end;
    }
    return end - at;
}

template <typename Unit>
std::size_t sign_at(std::basic_string_view<Unit> text, std::size_t at) {
    return at < text.size() && (text[at] == Unit{'-'} || text[at] == Unit{'+'}) ? 1 : 0;
}

/// The size of the exponent at `at`: 0 if there is none.
template <typename Unit>
std::size_t exponent_at(std::basic_string_view<Unit> text, std::size_t at) {
    if (at >= text.size() || (text[at] != Unit{'e'} && text[at] != Unit{'E'})) {
        return 0;
    }
    const std::size_t sign = sign_at(text, at + 1);
    const std::size_t digits = digits_at(text, at + 1 + sign);
    return digits == 0 ? 0 : 1 + sign + digits;
}

/// Reads a text from its start on, and writes some of it.
class Scan {
public:
    Scan(std::u16string_view text, char* to) : text_(text), to_(to) {}

    void take(std::size_t count) {
        for (; count > 0; --count) {
            take_unit();
        }
    }

    /// Takes digits over; gives their number.
    std::size_t take_digits() {
        const std::size_t begin = at_;
        while (at_ < text_.size() && is_digit(text_[at_])) {
            take_unit();
        }
        return at_ - begin;
    }

    /// Takes over the groups of digits that come next, each behind a separator.
    void take_groups(char16_t separator) {
        while (is_ahead(separator) && digits_at(text_, at_ + 1) == group_digits) {
            ++at_;
            take_unit();
            take_unit();
            take_unit();
        }
    }

    /// Writes a point in place of `mark` if that comes next; gives whether it does.
    bool take_decimal(char16_t mark) {
        if (!is_ahead(mark)) {
            return false;
        }
        ++at_;
        *to_++ = '.';
        return true;
    }

    [[nodiscard]] std::size_t at() const { return at_; }
    [[nodiscard]] char* to() const { return to_; }

private:
    void take_unit() { *to_++ = static_cast<char>(text_[at_++]); }

    [[nodiscard]] bool is_ahead(char16_t mark) const {
        return at_ < text_.size() && text_[at_] == mark;
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
    char* to_;
};

} // namespace

PlainNumbers::PlainNumbers(char16_t decimal_mark, char16_t thousands_separator)
    : decimal_(decimal_mark == 0 ? u'.' : decimal_mark), thousands_(thousands_separator) {}

char* PlainNumbers::write(std::u16string_view text, char* to) const noexcept {
    Scan scan(text, to);
    if (sign_at(text, 0) != 0) {
        scan.take(1);
    }
    std::size_t digits = scan.take_digits();
    if (thousands_ != 0 && digits >= 1 && digits <= group_digits) {
        scan.take_groups(thousands_);
    }
    if (scan.take_decimal(decimal_)) {
        digits += scan.take_digits();
    }
    if (scan.at() != text.size()) {
        scan.take(exponent_at(text, scan.at()));
    }
    return digits > 0 && scan.at() == text.size() ? scan.to() : nullptr;
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
