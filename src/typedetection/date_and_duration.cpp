#include "typedetection/date_and_duration.hpp"

#include "ascii.hpp"
#include "textio/platform/is_datetime.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zentor::io::text::typedetection {

namespace {

namespace ascii = textio::ascii;

constexpr char16_t blank = u' ';
constexpr std::size_t parts_of_time = 3; // hours, minutes, seconds

/// The number of runs of digits that `text` consists of, with one colon between each two, a sign in
/// front and a fraction at the end allowed; 0 if it is anything else.
std::size_t count_colon_parts(std::u16string_view text) {
    std::size_t parts = 0;
    std::size_t begin = ascii::skip_sign(text, 0);
    for (;;) {
        const std::size_t end = ascii::skip_digits(text, begin);
        if (end == begin) {
            return 0;
        }
        ++parts;
        if (end == text.size()) {
            return parts;
        }
        if (text[end] != u':') {
            const bool ends_in_fraction =
                text[end] == u'.' && ascii::skip_digits(text, end + 1) == text.size();
            return ends_in_fraction ? parts : 0;
        }
        begin = end + 1;
    }
}

bool is_datetime_without_failure(std::u16string_view text, const std::u16string& context) {
    try {
        return typeconversion::is_datetime(textio::Field(text), context);
    } catch (...) {
        return false; // a text that the date facility fails on is simply no date to it
    }
}

/// Whether one of the two parts of `text` around its first run of blanks is a time of day and the
/// other one a date.
bool is_date_beside_time(std::u16string_view text, const std::u16string& context) {
    const std::size_t head_size = std::min(text.find(blank), text.size());
    const std::u16string_view head = text.substr(0, head_size);
    const std::u16string_view tail =
        text.substr(std::min(text.find_first_not_of(blank, head_size), text.size()));
    if (count_colon_parts(head) == parts_of_time && is_datetime_without_failure(tail, context)) {
        return true;
    }
    return count_colon_parts(tail) == parts_of_time && is_datetime_without_failure(head, context);
}

} // namespace

std::optional<FieldClass> duration_class(const textio::Field& text) {
    switch (count_colon_parts(text.view())) {
    case 2:
        return FieldClass::short_duration;
    case 3:
    case 4:
        return FieldClass::duration;
    default:
        return std::nullopt;
    }
}

std::optional<FieldClass> datetime_class(const textio::Field& text, const std::u16string& context) {
    const std::u16string_view units = text.view();
    if (is_datetime_without_failure(units, context)) {
        const bool has_colon = units.find(u':') != std::u16string_view::npos;
        return has_colon ? FieldClass::datetime : FieldClass::date;
    }
    if (is_date_beside_time(units, context)) {
        return FieldClass::datetime;
    }
    return std::nullopt;
}

} // namespace zentor::io::text::typedetection
