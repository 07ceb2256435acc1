#include "advice/number_shape.hpp"

#include "advice/counts.hpp"
#include "advice/number_marks.hpp"
#include "advice/parts.hpp"
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
    /// Goes behind the unit here if it is what is looked for; gives whether it is.
    bool skip_if(bool is_it) {
        at += one_if(is_it);
        return is_it;
    }
    /// Likewise for one of some units, none of which is 0.
    bool skip_one_of(std::u16string_view units) { return skip_if(holds(units, unit())); }
};

constexpr std::size_t group_digits = 3;

/// What stands behind the first mark of a number.
struct Groups {
    std::size_t count = 0;
    std::size_t digits = 0; ///< in all of them
    std::size_t last = 0;   ///< digits of the last one
};

/// Goes behind a mark and some digits, and behind more of the same as long as these are three.
Groups scan_groups(NumberScan& scan, char16_t mark) {
    Groups groups;
    while ((groups.count == 0 || groups.last == group_digits) &&
           scan.skip_if(scan.unit() == mark)) {
        groups.last = scan.digits();
        groups.digits += groups.last;
        ++groups.count;
    }
    return groups;
}

/// Digits with marks among them: at most one kind of mark stands before groups of three, and at
/// most one mark of the other kind stands behind those. Gives whether there was a digit.
bool scan_mantissa(NumberScan& scan) {
    const std::size_t lead = scan.digits();
    const char16_t mark = scan.unit();
    if (!is_number_mark(mark)) {
        return lead > 0;
    }
    const Groups groups = scan_groups(scan, mark);
    const bool are_thousands = lead > 0 && lead <= group_digits && groups.last == group_digits;
    if (!are_thousands && groups.count > 1) {
        return false;
    }
    const bool has_fraction = are_thousands && scan.skip_if(is_number_mark(scan.unit()));
    return lead + groups.digits + (has_fraction ? scan.digits() : 0) > 0;
}

void skip_exponent(NumberScan& scan) {
    if (!holds(u"ED", ascii::to_upper(scan.unit()))) {
        return;
    }
    const std::size_t digits = ascii::skip_sign(scan.text, scan.at + 1);
    const std::size_t end = ascii::skip_digits(scan.text, digits);
    if (end != digits) {
        scan.at = end;
    }
}

/// What may stand in front of a number's digits.
void skip_front(NumberScan& scan) {
    scan.at = ascii::skip_sign(scan.text, 0);
    scan.skip_one_of(u"$\u20AC\u00A3\u00A5");
    scan.skip_one_of(u"<>");
}

/// Whether nothing is left but what may stand behind a number.
bool is_ending(NumberScan& scan) {
    skip_exponent(scan);
    scan.skip_one_of(u"%");
    return scan.ended();
}

bool are_digits(std::u16string_view text) {
    return !text.empty() && ascii::skip_digits(text, ascii::skip_sign(text, 0)) == text.size();
}

bool is_group(std::u16string_view text) {
    return text.size() == group_digits && ascii::skip_digits(text, 0) == group_digits;
}

/// The digits behind the last comma, if nothing follows them but the point of a group; or 0.
std::size_t last_digits(std::u16string_view text) {
    const std::size_t end = ascii::skip_digits(text, 0);
    const bool has_point = end == group_digits && text.substr(end).starts_with(u'.');
    return end == text.size() || has_point ? end : 0;
}

/// A group of digits, perhaps with a sign in front.
bool is_short(std::u16string_view lead) {
    return lead.size() <= group_digits + 1;
}

constexpr std::size_t most_parts = 3; ///< that commas cut a number into

/// Rows that look as if a number was cut in two.
struct CutSigns {
    std::size_t with_zero = 0;  ///< behind the last comma
    std::size_t with_point = 0; ///< behind the digits that follow it

    [[nodiscard]] bool show_cut(std::size_t rows) const {
        constexpr std::size_t many_rows = 5;
        return with_zero != 0 || (with_point == rows && rows >= many_rows);
    }
};

/// Whether what stands in front of a row's last comma can be the front of a number.
bool leads_number(const Grid& grid, std::size_t row) {
    const std::u16string_view lead = grid.cell(row, 0);
    const bool has_groups = grid.columns == most_parts;
    return are_digits(lead) && (!has_groups || (is_short(lead) && is_group(grid.cell(row, 1))));
}

} // namespace

bool looks_like_number(std::u16string_view text) noexcept {
    const std::size_t digits = ascii::skip_digits(text, 0);
    if (digits == text.size()) {
        return digits > 0;
    }
    NumberScan scan{text};
    if (digits == 0) {
        skip_front(scan);
    }
    return scan_mantissa(scan) && (scan.ended() || is_ending(scan));
}

bool cuts_numbers(const Grid& grid) noexcept {
    constexpr std::size_t least_digits = 2;
    if (grid.columns > most_parts || grid.rows() < 3) {
        return false;
    }
    const std::size_t digits = last_digits(grid.cell(0, grid.columns - 1));
    CutSigns signs;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        const std::u16string_view last = grid.cell(row, grid.columns - 1);
        if (!leads_number(grid, row) || last_digits(last) != digits) {
            return false;
        }
        signs.with_zero += one_if(last.starts_with(u'0'));
        signs.with_point += one_if(last.size() > digits && is_short(grid.cell(row, 0)));
    }
    return digits >= least_digits && signs.show_cut(grid.rows());
}

} // namespace textio::advice
