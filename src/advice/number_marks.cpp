#include "advice/number_marks.hpp"

#include "ascii.hpp"

#include <algorithm>

namespace textio::advice {

void NumberMarks::add(std::u16string_view number) noexcept {
    std::size_t first = std::u16string_view::npos;
    std::size_t last = first;
    for (std::size_t at = 0; at < number.size(); ++at) {
        if (number[at] == u'.' || number[at] == u',') {
            first = std::min(first, at);
            last = at;
        }
    }
    if (last == std::u16string_view::npos) {
        return;
    }
    Mark& mark = number[last] == u'.' ? point_ : comma_;
    if (number[first] != number[last]) {
        ++mark.decimal;
        ++(number[last] == u'.' ? comma_ : point_).thousands;
        return;
    }
    if (first != last) {
        ++mark.thousands;
        return;
    }
    const std::size_t lead = ascii::skip_sign(number, 0);
    const std::size_t digits = first - lead;
    const std::size_t fraction_end = ascii::skip_digits(number, last + 1);
    const bool is_group = fraction_end - last == 4 && digits >= 1 && digits <= 3 &&
                          number[lead] != u'0' && fraction_end == number.size();
    ++(is_group ? mark.either : mark.decimal);
}

bool NumberMarks::are_settled() const noexcept {
    constexpr std::size_t many = 16;
    const bool agree = point_.decimal == 0 || comma_.decimal == 0;
    return agree && point_.decimal + comma_.decimal >= many;
}

char16_t NumberMarks::decimal_mark() const noexcept {
    if (point_.decimal > comma_.decimal) {
        return u'.';
    }
    if (comma_.decimal > point_.decimal) {
        return u',';
    }
    if (comma_.thousands > point_.thousands && point_.decimal == 0) {
        return 0;
    }
    // One mark before three digits everywhere: a point is a decimal point more often than not.
    return point_.either > 0 && point_.thousands == 0 && comma_.either == 0 ? u'.' : u'\0';
}

char16_t NumberMarks::thousands_separator() const noexcept {
    const char16_t decimal = decimal_mark();
    if (comma_.thousands + comma_.either > 0 && decimal != u',' && comma_.decimal == 0) {
        return u',';
    }
    if (point_.thousands + point_.either > 0 && decimal != u'.' && point_.decimal == 0) {
        return u'.';
    }
    return 0;
}

} // namespace textio::advice
