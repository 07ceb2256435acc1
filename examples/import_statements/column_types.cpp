#include "column_types.hpp"

#include <algorithm>
#include <array>

namespace import_statements {

namespace {

constexpr std::size_t most_stand_ins = 3;

/// More digits than a tool with binary numbers alone can hold are those of a name.
constexpr std::size_t most_digits = 15;

bool is_stand_in(std::u16string_view value) {
    static constexpr std::array<std::u16string_view, 17> known{
        u"NA",  u"N/A", u"n/a",  u"na", u"#N/A", u"NULL", u"Null", u"null", u"NaN",
        u"nan", u"\\N", u"n.a.", u"-",  u"--",   u"---",  u"?",    u"None"};
    return std::find(known.begin(), known.end(), value) != known.end();
}

bool is_digit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

std::size_t digits_at_start(std::u16string_view text) {
    const auto* const end = std::find_if_not(text.begin(), text.end(), is_digit);
    return static_cast<std::size_t>(end - text.begin());
}

/// A number in the one form that all tools take: a minus sign, digits, perhaps with thousands
/// separators, a decimal mark with digits, an exponent.
struct Number {
    bool is_valid = false;
    bool is_integer = true;
    bool is_grouped = false;
};

/// Takes the digits in front of the decimal mark; gives how many there are, 0 if they are not as in
/// a number.
std::size_t take_whole_part(std::u16string_view& text, char16_t thousands, Number& number) {
    constexpr std::size_t group = 3;
    std::size_t digits = digits_at_start(text);
    const bool has_zero_in_front = digits > 1 && text.front() == u'0';
    text.remove_prefix(digits);
    if (has_zero_in_front) {
        return 0;
    }
    const std::size_t first = digits;
    while (thousands != 0 && first != 0 && !text.empty() && text.front() == thousands) {
        if (first > group || digits_at_start(text.substr(1)) != group) {
            return 0;
        }
        number.is_grouped = true;
        text.remove_prefix(1 + group);
        digits += group;
    }
    return digits;
}

bool take_exponent(std::u16string_view& text) {
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) {
        text.remove_prefix(1);
    }
    const std::size_t digits = digits_at_start(text);
    text.remove_prefix(digits);
    return digits == 1 || digits == 2;
}

Number number_in(std::u16string_view text, NumberMarks marks) {
    Number number;
    if (!text.empty() && text.front() == u'-') {
        text.remove_prefix(1);
    }
    const std::size_t whole = take_whole_part(text, marks.thousands, number);
    if (whole == 0) {
        return number;
    }
    if (!text.empty() && text.front() == marks.decimal) {
        number.is_integer = false;
        const std::size_t digits = digits_at_start(text.substr(1));
        text.remove_prefix(1 + digits);
        if (digits == 0) {
            return number;
        }
    }
    if (!text.empty() && (text.front() == u'e' || text.front() == u'E')) {
        number.is_integer = false;
        if (!take_exponent(text)) {
            return number;
        }
    }
    number.is_valid = text.empty() && (!number.is_integer || whole <= most_digits);
    return number;
}

} // namespace

void ColumnJudge::add(std::u16string_view value) {
    if (is_stand_in(value)) {
        stand_ins_.emplace(value);
        return;
    }
    ++values_;
    if (are_numbers_) {
        const Number number = number_in(value, marks_);
        are_numbers_ = number.is_valid;
        are_integers_ = are_integers_ && number.is_integer;
        are_grouped_ = are_grouped_ || number.is_grouped;
    }
    if (formats_ != 0) {
        formats_ &= date_formats_of(value);
    }
}

void ColumnJudge::tell(Column& column) const {
    column.has_missing = has_missing_;
    if (values_ == 0 || stand_ins_.size() > most_stand_ins) {
        return;
    }
    if (are_numbers_) {
        column.type = are_integers_ ? Type::integer : Type::number;
        column.is_grouped = are_grouped_;
    } else if (const DateFormat* format = only_format(formats_)) {
        column.format = format;
        column.type = has_time(*format) ? Type::date_time : Type::date;
    }
    column.has_missing = has_missing_ || (column.type != Type::text && !stand_ins_.empty());
}

} // namespace import_statements
