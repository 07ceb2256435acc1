#include "advice/number_marks.hpp"

#include "ascii.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// Whether a number has so many digits in front that a separator of thousands could stand behind
/// them: up to three, no 0 in front.
bool could_lead_group(std::u16string_view number, std::size_t lead, std::size_t end) {
    return end - lead >= 1 && end - lead <= 3 && number[lead] != u'0';
}

/// Whether the one mark of a number, at a place in it, could separate thousands: it stands before
/// three digits as well.
bool could_be_group(std::u16string_view number, std::size_t mark) {
    const std::size_t end = ascii::skip_digits(number, mark + 1);
    return could_lead_group(number, ascii::skip_sign(number, 0), mark) && end - mark == 4 &&
           end == number.size();
}

} // namespace

void NumberMarks::add(std::u16string_view number) noexcept {
    const auto* const first = std::find_if(number.begin(), number.end(), is_number_mark);
    if (first == number.end()) {
        add_unmarked(number);
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

/// Takes in a number without a mark. What is more than digits, or begins with a 0, tells nothing.
void NumberMarks::add_unmarked(std::u16string_view number) noexcept {
    const std::size_t lead = ascii::skip_sign(number, 0);
    if (lead < number.size() && number[lead] != u'0' &&
        ascii::skip_digits(number, lead) == number.size()) {
        ++(could_lead_group(number, lead, number.size()) ? below_thousand_ : ungrouped_);
    }
}

/// Whether one mark before three digits can only separate thousands: decimals that have three
/// digits wherever there are any would not be missing from several numbers.
bool NumberMarks::has_groups() const noexcept {
    constexpr std::size_t several = 2;
    return below_thousand_ >= several && ungrouped_ == 0 && point_.decimal + comma_.decimal == 0 &&
           (point_.either == 0 || comma_.either == 0);
}

void NumberMarks::add_together(const NumberMarks& column) noexcept {
    if (column.has_groups()) {
        point_.take_for_groups(column.point_.either);
        comma_.take_for_groups(column.comma_.either);
    }
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
