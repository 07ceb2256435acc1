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

constexpr std::size_t group_digits = 3;

bool are_digits(std::u16string_view text) {
    return !text.empty() && ascii::skip_digits(text, ascii::skip_sign(text, 0)) == text.size();
}

bool is_group(std::u16string_view text) {
    return text.size() == group_digits && ascii::skip_digits(text, 0) == group_digits;
}

/// The digits behind the last comma, if nothing follows them but the point of a group; or 0.
std::size_t last_digits(std::u16string_view text) {
    const std::size_t end = ascii::skip_digits(text, 0);
    const bool has_point = end == group_digits && end < text.size() && text[end] == u'.';
    return end == text.size() || has_point ? end : 0;
}

} // namespace

bool looks_like_number(std::u16string_view text) noexcept {
    NumberScan scan{text};
    scan.at = ascii::skip_digits(text, 0);
    if (scan.ended()) {
        return !text.empty();
    }
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

bool cuts_numbers(const Grid& grid) noexcept {
    constexpr std::size_t most_parts = 3;
    constexpr std::size_t least_digits = 2;
    if (grid.columns > most_parts || grid.rows() < 3) {
        return false;
    }
    const bool has_groups = grid.columns == most_parts;
    const std::size_t digits = last_digits(grid.cell(0, grid.columns - 1));
    constexpr std::size_t many_rows = 5;
    bool has_zero = false;
    bool has_points = grid.rows() >= many_rows;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        const std::u16string_view lead = grid.cell(row, 0);
        const std::u16string_view last = grid.cell(row, grid.columns - 1);
        const bool has_lead =
            are_digits(lead) &&
            (!has_groups || (lead.size() <= group_digits + 1 && is_group(grid.cell(row, 1))));
        if (!has_lead || digits < least_digits || last_digits(last) != digits) {
            return false;
        }
        has_zero = has_zero || last.front() == u'0';
        has_points = has_points && last.size() > digits && lead.size() <= group_digits + 1;
    }
    return has_zero || has_points;
}

} // namespace textio::advice
