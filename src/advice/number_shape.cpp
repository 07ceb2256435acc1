#include "advice/number_shape.hpp"

#include "ascii.hpp"

namespace textio::advice {

namespace {

/// A place in a text that is read as a number.
struct NumberScan {
    std::u16string_view text;
    std::size_t at = 0;

    [[nodiscard]] bool ended() const { return at == text.size(); }
    [[nodiscard]] char16_t unit() const { return ended() ? u'\0' : text[at]; }
    std::size_t digits() {
        const std::size_t start = at;
        at = ascii::skip_digits(text, at);
        return at - start;
    }
};

constexpr bool is_mark(char16_t unit) {
    return unit == u'.' || unit == u',';
}

/// Digits with marks among them: at most one kind of mark stands before groups of three, and at
/// most one mark of the other kind stands behind those. Gives whether there was a digit.
bool scan_mantissa(NumberScan& scan) {
    std::size_t total = scan.digits();
    const std::size_t lead = total;
    if (!is_mark(scan.unit())) {
        return total > 0;
    }
    const char16_t first = scan.unit();
    ++scan.at;
    std::size_t group = scan.digits();
    total += group;
    std::size_t groups = 1;
    while (scan.unit() == first && group == 3) {
        ++scan.at;
        group = scan.digits();
        total += group;
        ++groups;
    }
    if (groups > 1 && (group != 3 || lead == 0 || lead > 3)) {
        return false;
    }
    if (is_mark(scan.unit()) && scan.unit() != first && group == 3 && lead > 0 && lead <= 3) {
        ++scan.at;
        total += scan.digits();
    }
    return total > 0;
}

bool scan_exponent(NumberScan& scan) {
    const char16_t unit = ascii::to_upper(scan.unit());
    if (unit != u'E' && unit != u'D') {
        return false;
    }
    const std::size_t digits = ascii::skip_sign(scan.text, scan.at + 1);
    const std::size_t end = ascii::skip_digits(scan.text, digits);
    if (end == digits) {
        return false;
    }
    scan.at = end;
    return true;
}

} // namespace

bool looks_like_number(std::u16string_view text) noexcept {
    NumberScan scan{text};
    scan.at = ascii::skip_sign(text, 0);
    constexpr std::u16string_view currencies = u"$\u20AC\u00A3\u00A5";
    if (!scan.ended() && currencies.find(scan.unit()) != std::u16string_view::npos) {
        ++scan.at;
    }
    if (scan.unit() == u'<' || scan.unit() == u'>') {
        ++scan.at;
    }
    if (!scan_mantissa(scan)) {
        return false;
    }
    scan_exponent(scan);
    if (scan.unit() == u'%') {
        ++scan.at;
    }
    return scan.ended();
}

} // namespace textio::advice
