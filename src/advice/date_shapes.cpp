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
    constexpr std::size_t shortest_date = 3;
    constexpr std::size_t longest_date = 48;
    return text.size() >= shortest_date && text.size() <= longest_date &&
           std::any_of(text.begin(), text.end(), ascii::is_digit) &&
           std::any_of(text.begin(), text.end(), stands_in_dates);
}

/// What stands in one place of two dates of one shape.
bool are_alike(char16_t one, char16_t other) {
    return one == other || (ascii::is_digit(one) && ascii::is_digit(other));
}

bool is_time(FieldClass found) {
    constexpr std::array<FieldClass, 4> times{FieldClass::date, FieldClass::datetime,
                                              FieldClass::duration, FieldClass::short_duration};
    return std::find(times.begin(), times.end(), found) != times.end();
}

} // namespace

bool have_same_shape(std::u16string_view left, std::u16string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), are_alike);
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
        answer = {text, is_time(analyzer_.classify(Field(text)))};
    }
    return answer.is_date;
}

} // namespace textio::advice
