#include "iso_dates.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace detect_layout {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr unsigned months_per_year = 12;

bool is_digit(char byte) {
    return digits.find(byte) != std::string_view::npos;
}

bool is_letter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

char small(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

/// A number, or a month by its name.
struct Part {
    unsigned value = 0;
    std::size_t digits = 0;
    bool is_month_name = false;
};

/// A date cut up.
struct Parts {
    std::array<Part, 3> parts;
    char sign = 0; ///< between them
    std::string_view time;
};

/// 1 to 12 for a month's name or its first three letters, else 0.
unsigned month_named(std::string_view word) {
    static constexpr std::array<std::string_view, months_per_year> names{
        "january", "february", "march",     "april",   "may",      "june",
        "july",    "august",   "september", "october", "november", "december"};
    constexpr std::size_t shortened = 3;
    const auto* const found = std::find_if(names.begin(), names.end(), [&](std::string_view name) {
        return (word.size() == shortened || word.size() == name.size()) &&
               std::equal(word.begin(), word.end(), name.begin(),
                          [](char one, char other) { return small(one) == other; });
    });
    return found == names.end() ? 0 : static_cast<unsigned>(found - names.begin()) + 1;
}

/// Takes the part at the start of `text` away.
Part take_part(std::string_view& text) {
    constexpr std::size_t most_digits = 4;
    const auto end_of = [&text](bool (*belongs)(char)) {
        return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), belongs) -
                                        text.begin());
    };
    Part part;
    std::size_t end = end_of(is_digit);
    if (end >= 1 && end <= most_digits) {
        part.digits = end;
        for (const char digit : text.substr(0, end)) {
            part.value = 10 * part.value + static_cast<unsigned>(digit - '0');
        }
    } else {
        end = end_of(is_letter);
        part.value = month_named(text.substr(0, end));
        part.is_month_name = true;
    }
    text.remove_prefix(end);
    return part;
}

/// Whether `text` is `12:30`, `12:30:05`, `12:30:05.25`, perhaps with a zone behind it.
bool is_time(std::string_view text) {
    constexpr std::array<std::string_view, 3> shapes{"00:00:00.", "00:00:00", "00:00"};
    const auto has_shape = [&text](std::string_view shape) {
        return text.size() >= shape.size() &&
               std::equal(shape.begin(), shape.end(), text.begin(), [](char wanted, char byte) {
                   return wanted == '0' ? is_digit(byte) : wanted == byte;
               });
    };
    const auto* const shape = std::find_if(shapes.begin(), shapes.end(), has_shape);
    if (shape == shapes.end()) {
        return false;
    }
    text.remove_prefix(shape->size());
    if (shape == shapes.begin()) {
        text.remove_prefix(std::min(text.find_first_not_of(digits), text.size()));
    }
    if (text.empty() || text == "Z") {
        return true;
    }
    return (text.front() == '+' || text.front() == '-') &&
           (text.size() == 3 || text.size() == 5 || text.size() == 6) &&
           std::all_of(text.begin() + 1, text.end(),
                       [](char byte) { return is_digit(byte) || byte == ':'; });
}

std::optional<Parts> cut(std::string_view text) {
    constexpr std::string_view signs = "-./ ";
    Parts result;
    for (std::size_t i = 0; i < result.parts.size(); ++i) {
        result.parts[i] = take_part(text);
        if (result.parts[i].value == 0) {
            return std::nullopt;
        }
        if (i + 1 == result.parts.size()) {
            break;
        }
        const bool has_comma = i == 1 && text.starts_with(", ");
        text.remove_prefix(has_comma ? 1 : 0);
        const bool fits = !text.empty() && signs.find(text.front()) != std::string_view::npos &&
                          (i == 0 || text.front() == result.sign);
        if (!fits) {
            return std::nullopt;
        }
        result.sign = text.front();
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return result;
    }
    result.time = text.substr(1);
    const bool has_time = (text.front() == ' ' || text.front() == 'T') && is_time(result.time);
    return has_time ? std::optional(result) : std::nullopt;
}

unsigned days_of(unsigned month, unsigned year) {
    constexpr std::array<unsigned, months_per_year> days{31, 28, 31, 30, 31, 30,
                                                         31, 31, 30, 31, 30, 31};
    const bool is_leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return days[month - 1] + (month == 2 && is_leap ? 1 : 0);
}

/// Year, month and day.
using Date = std::array<unsigned, 3>;

std::optional<Date> date_in(const Parts& cut, DateOrder order) {
    constexpr std::array<std::array<std::size_t, 3>, 3> places{{{0, 1, 2}, {2, 1, 0}, {2, 0, 1}}};
    const auto& place = places[static_cast<std::size_t>(order)];
    const Part& year = cut.parts[place[0]];
    const Part& month = cut.parts[place[1]];
    const Part& day = cut.parts[place[2]];
    const bool is_usual = order != DateOrder::month_day_year || cut.sign != '.';
    if (!is_usual || year.digits != 4 || month.digits > 2 || day.digits > 2 || day.is_month_name ||
        month.value > months_per_year || day.value > days_of(month.value, year.value)) {
        return std::nullopt;
    }
    return Date{year.value, month.value, day.value};
}

void append_digits(std::string& text, unsigned number, std::size_t count) {
    const std::string all = std::to_string(number);
    text.append(count - std::min(count, all.size()), '0').append(all);
}

} // namespace

std::optional<DateOrder> order_of(const std::vector<std::string>& dates) {
    std::vector<DateOrder> orders{DateOrder::year_month_day, DateOrder::day_month_year,
                                  DateOrder::month_day_year};
    for (const std::string& text : dates) {
        const auto parts = cut(text);
        std::erase_if(orders, [&](DateOrder order) { return !parts || !date_in(*parts, order); });
    }
    return orders.size() == 1 ? std::optional(orders.front()) : std::nullopt;
}

std::string_view iso_date(std::string_view text, DateOrder order, std::string& buffer) {
    const auto parts = cut(text);
    const auto date = parts ? date_in(*parts, order) : std::nullopt;
    if (!date) {
        return {};
    }
    buffer.clear();
    append_digits(buffer, (*date)[0], 4);
    buffer += '-';
    append_digits(buffer, (*date)[1], 2);
    buffer += '-';
    append_digits(buffer, (*date)[2], 2);
    if (!parts->time.empty()) {
        buffer.append("T").append(parts->time);
    }
    return buffer;
}

} // namespace detect_layout
