#include "advice/date_shapes.hpp"

#include "ascii.hpp"

#include <algorithm>
#include <cstdint>

namespace textio::advice {

using zentor::io::text::typedetection::FieldClass;

namespace {

/// A number that texts of one shape share.
std::size_t number_of_shape(std::u16string_view text) {
    std::uint32_t number = 0;
    for (const char16_t unit : text) {
        number = number * 31 + (ascii::is_digit(unit) ? u'0' : unit);
    }
    return number ^ (number >> 16);
}

/// Nothing without a digit and one of the signs between the parts of a date, and nothing longer
/// than the longest date in words, is one.
bool could_be_date(std::u16string_view text) {
    constexpr std::size_t longest_date = 48;
    if (text.size() < 3 || text.size() > longest_date) {
        return false;
    }
    bool has_digit = false;
    bool has_sign = false;
    for (const char16_t unit : text) {
        has_digit = has_digit || ascii::is_digit(unit);
        has_sign = has_sign || stands_in_dates(unit);
    }
    return has_digit && has_sign;
}

} // namespace

bool have_same_shape(std::u16string_view left, std::u16string_view right) noexcept {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](char16_t one, char16_t other) {
               return one == other || (ascii::is_digit(one) && ascii::is_digit(other));
           });
}

bool DateShapes::is_date(std::u16string_view text) {
    if (!could_be_date(text)) {
        return false;
    }
    if (have_same_shape(text, last_->text)) {
        return last_->is_date;
    }
    last_ = &answers_[number_of_shape(text) % answers_.size()];
    Answer& answer = *last_;
    if (!have_same_shape(text, answer.text)) {
        const FieldClass found = analyzer_.classify(Field(text));
        answer.text = text;
        answer.is_date = found == FieldClass::date || found == FieldClass::datetime ||
                         found == FieldClass::duration || found == FieldClass::short_duration;
    }
    return answer.is_date;
}

} // namespace textio::advice
