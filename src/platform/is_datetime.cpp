#include "textio/platform/is_datetime.hpp"

#include "ascii.hpp"
#include "platform/date_shapes.hpp"
#include "platform/date_values.hpp"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace zentor::io::text::typeconversion {

namespace {

namespace ascii = textio::ascii;

/// Reads one text under one shape after another. Functions that `take` something move the reading
/// past it; one that gives false leaves the reading unfit for further use.
class ShapeReader {
public:
    explicit ShapeReader(std::u16string_view text) : text_(text) {}

    /// The reading that stands behind the weekday that the text starts with, if it does.
    [[nodiscard]] Reading after_weekday() const;

    /// The reading behind all of `shape`, which starts where `reading` stands.
    [[nodiscard]] std::optional<Reading> read(std::string_view shape, Reading reading) const;

private:
    bool take(std::string_view element, Reading& reading) const;
    bool take_part(char letter, Reading& reading) const;
    bool take_number(const Number& number, std::size_t length, Reading& reading) const;
    bool take_digits(Reading& reading) const;
    bool take_blanks(Reading& reading) const;
    bool take_separator(Reading& reading) const;
    bool take_one_of(std::string_view units, Reading& reading) const;
    bool take_month(Reading& reading) const;
    [[nodiscard]] std::u16string_view letters_at(std::size_t position) const;

    std::u16string_view text_;
};

/// The number, from 1, of the name that `word` is or begins; 0 if there is none.
int find_name(std::span<const std::u16string_view> names, std::u16string_view word) {
    constexpr std::size_t shortest = 3;
    if (word.size() < shortest) {
        return 0;
    }
    int number = 0;
    for (const std::u16string_view name : names) {
        ++number;
        if (ascii::equals_ignoring_case(name.substr(0, word.size()), word)) {
            return number;
        }
    }
    return 0;
}

/// The length of the optional part that `shape` starts with, brackets included.
std::size_t optional_part_size(std::string_view shape) {
    std::size_t depth = 0;
    std::size_t size = 0;
    do {
        if (shape[size] == '[') {
            ++depth;
        } else if (shape[size] == ']') {
            --depth;
        }
        ++size;
    } while (depth > 0);
    return size;
}

/// The number that `letter` stands for in a shape, null if it stands for something else.
const Number* find_number(char letter) {
    for (const Number& number : numbers) {
        if (number.letter == letter) {
            return &number;
        }
    }
    return nullptr;
}

bool is_lower(char letter) {
    return letter >= 'a' && letter <= 'z';
}

/// The length of the element other than an optional part that `shape` starts with.
std::size_t element_size(std::string_view shape) {
    const char first = shape.front();
    if (first == '{') {
        return shape.find('}') + 1;
    }
    if (!is_lower(first)) {
        return 1;
    }
    return std::min(shape.find_first_not_of(first), shape.size());
}

std::optional<Reading> ShapeReader::read(std::string_view shape, Reading reading) const {
    while (!shape.empty()) {
        std::size_t size = 1;
        if (shape.front() == '[') {
            if (const std::optional<Reading> with_part = read(shape.substr(1), reading)) {
                return with_part;
            }
            size = optional_part_size(shape);
        } else if (shape.front() != ']') { // the end of an optional part asks for nothing
            size = element_size(shape);
            if (!take(shape.substr(0, size), reading)) {
                return std::nullopt;
            }
        }
        shape.remove_prefix(size);
    }
    return reading;
}

bool ShapeReader::take(std::string_view element, Reading& reading) const {
    const char first = element.front();
    if (first == '{') {
        return take_one_of(element.substr(1, element.size() - 2), reading);
    }
    if (first == ' ') {
        return take_blanks(reading);
    }
    if (first == '9') {
        return take_digits(reading);
    }
    if (first == '~') {
        return take_separator(reading);
    }
    if (element == "mmm") {
        return take_month(reading);
    }
    if (const Number* number = find_number(first)) {
        return take_number(*number, element.size(), reading);
    }
    const bool is_part = first == '_' || is_lower(first);
    return is_part ? take_part(first, reading) : take_one_of(element, reading);
}

bool ShapeReader::take_part(char letter, Reading& reading) const {
    for (const date_shapes::Part& part : date_shapes::parts) {
        if (part.letter != letter) {
            continue;
        }
        if (const std::optional<Reading> after = read(part.shape, reading)) {
            reading = *after;
            return true;
        }
    }
    return false;
}

bool ShapeReader::take_number(const Number& number, std::size_t length, Reading& reading) const {
    const std::size_t run = ascii::skip_digits(text_, reading.position) - reading.position;
    const bool is_year = number.letter == 'y';
    const bool fits = length == 1 ? run == 2 || run == (is_year ? 4U : 1U) : run >= length;
    if (!fits) {
        return false;
    }

    const std::size_t size = length == 1 ? run : length;
    int value = 0;
    for (const char16_t unit : text_.substr(reading.position, size)) {
        value = value * 10 + (unit - u'0');
    }
    if (value < number.least || value > number.most) {
        return false;
    }
    if (number.value != nullptr) {
        reading.*number.value = value;
    }
    reading.position += size;
    return true;
}

bool ShapeReader::take_digits(Reading& reading) const {
    const std::size_t start = reading.position;
    reading.position = ascii::skip_digits(text_, start);
    return reading.position != start;
}

bool ShapeReader::take_blanks(Reading& reading) const {
    reading.position = std::min(text_.find_first_not_of(u' ', reading.position), text_.size());
    return true;
}

bool ShapeReader::take_separator(Reading& reading) const {
    if (!take_one_of("/-", reading)) {
        return false;
    }
    const char16_t separator = text_[reading.position - 1];
    if (reading.separator == 0) {
        reading.separator = separator;
    }
    return separator == reading.separator;
}

bool ShapeReader::take_one_of(std::string_view units, Reading& reading) const {
    if (reading.position == text_.size()) {
        return false;
    }
    const char16_t unit = ascii::to_upper(text_[reading.position]);
    ++reading.position;
    return std::any_of(units.begin(), units.end(),
                       [unit](char candidate) { return static_cast<char16_t>(candidate) == unit; });
}

bool ShapeReader::take_month(Reading& reading) const {
    const std::u16string_view name = letters_at(reading.position);
    reading.month = find_name(month_names, name);
    reading.position += name.size();
    return reading.month != 0;
}

std::u16string_view ShapeReader::letters_at(std::size_t position) const {
    std::size_t end = position;
    while (end < text_.size() && ascii::is_letter(text_[end])) {
        ++end;
    }
    return text_.substr(position, end - position);
}

Reading ShapeReader::after_weekday() const {
    Reading reading;
    const std::u16string_view name = letters_at(0);
    if (find_name(weekday_names, name) != 0) {
        reading.position = name.size();
        take_part('_', reading);
    }
    return reading;
}

/// Whether a text that starts with so many digits can have this shape, judged by its first element.
bool can_start(std::string_view shape, std::size_t digits) {
    const std::size_t size = element_size(shape);
    const bool is_name = shape.starts_with("mmm");
    return is_name ? digits == 0 : size == 1 ? digits == 1 || digits == 2 : digits >= size;
}

/// Whether the values of a reading go together: no 30 February, and nothing later than 24:00:00.
bool is_possible(const Reading& reading) {
    using namespace std::chrono;
    const year_month_day date{year{reading.year}, month{static_cast<unsigned>(reading.month)},
                              day{static_cast<unsigned>(reading.day)}};
    return date.ok() && (reading.hour < 24 || (reading.minute == 0 && reading.second == 0));
}

} // namespace

bool is_datetime(const textio::Field& text, const std::u16string& /*context*/) {
    const ShapeReader reader(text.view());
    const Reading start = reader.after_weekday();
    const std::size_t digits = ascii::skip_digits(text.view(), start.position) - start.position;
    return std::any_of(
        date_shapes::dates.begin(), date_shapes::dates.end(), [&](std::string_view shape) {
            if (!can_start(shape, digits)) {
                return false;
            }
            const std::optional<Reading> reading = reader.read(shape, start);
            return reading && reading->position == text.size && is_possible(*reading);
        });
}

} // namespace zentor::io::text::typeconversion
