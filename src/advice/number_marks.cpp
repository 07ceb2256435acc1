#include "advice/number_marks.hpp"

#include "ascii.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// Whether the one mark of a number, at a place in it, could separate thousands: behind up to three
/// digits, no 0 in front, and before three.
bool could_be_group(std::u16string_view number, std::size_t mark) {
    const std::size_t lead = ascii::skip_sign(number, 0);
    const std::size_t digits = mark - lead;
    const std::size_t end = ascii::skip_digits(number, mark + 1);
    const bool is_lead = digits >= 1 && digits <= 3 && number[lead] != u'0';
    return is_lead && end - mark == 4 && end == number.size();
}

} // namespace

void NumberMarks::add(std::u16string_view number) noexcept {
    const auto* const first = std::find_if(number.begin(), number.end(), is_number_mark);
    if (first == number.end()) {
        return;
    }
    const auto* const last =
        std::find_if(number.rbegin(), number.rend(), is_number_mark).base() - 1;
    Mark& mark = *last == u'.' ? point_ : comma_;
    if (*first != *last) {
        ++mark.decimal;
        ++(&mark == &point_ ? comma_ : point_).thousands;
    } else if (first != last) {
        ++mark.thousands;
    } else {
        ++(could_be_group(number, static_cast<std::size_t>(last - number.begin())) ? mark.either
                                                                                   : mark.decimal);
    }
}

bool NumberMarks::Mark::may_separate() const noexcept {
    return thousands + either > 0 && decimal == 0;
}

bool NumberMarks::are_settled() const noexcept {
    constexpr std::size_t many = 16;
    const bool agree = point_.decimal == 0 || comma_.decimal == 0;
    return agree && point_.decimal + comma_.decimal >= many;
}

char16_t NumberMarks::decimal_mark() const noexcept {
    if (point_.decimal != comma_.decimal) {
        return point_.decimal > comma_.decimal ? u'.' : u',';
    }
    const bool are_commas_thousands = comma_.thousands > point_.thousands && point_.decimal == 0;
    // One mark before three digits everywhere: a point is a decimal point more often than not.
    const bool may_be_point = point_.either > 0 && point_.thousands == 0 && comma_.either == 0;
    return may_be_point && !are_commas_thousands ? u'.' : u'\0';
}

char16_t NumberMarks::thousands_separator() const noexcept {
    const char16_t decimal = decimal_mark();
    if (decimal != u',' && comma_.may_separate()) {
        return u',';
    }
    return decimal != u'.' && point_.may_separate() ? u'.' : u'\0';
}

} // namespace textio::advice
