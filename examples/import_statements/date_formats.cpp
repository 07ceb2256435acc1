#include "date_formats.hpp"

#include <array>
#include <cstddef>

namespace import_statements {

namespace {

constexpr const char* german = "de-DE";
constexpr const char* british = "en-GB";
constexpr const char* american = "en-US";

constexpr std::array<DateFormat, 14> formats{{
    {"%Y-%m-%d", "yyyy-MM-dd", "YYYY-MM-DD", american, false},
    {"%Y/%m/%d", "yyyy/MM/dd", "YYYY/MM/DD", american, false},
    {"%d.%m.%Y", "dd.MM.yyyy", "DD.MM.YYYY", german, false},
    {"%d/%m/%Y", "dd/MM/yyyy", "DD/MM/YYYY", british, false},
    {"%m/%d/%Y", "MM/dd/yyyy", "MM/DD/YYYY", american, false},
    {"%d-%m-%Y", "dd-MM-yyyy", "DD-MM-YYYY", british, false},
    {"%m-%d-%Y", "MM-dd-yyyy", "MM-DD-YYYY", american, false},
    {"%Y-%m-%d %H:%M", "yyyy-MM-dd HH:mm", "YYYY-MM-DD HH24:MI", american, false},
    {"%Y-%m-%d %H:%M:%S", "yyyy-MM-dd HH:mm:ss", "YYYY-MM-DD HH24:MI:SS", american, false},
    {"%Y-%m-%dT%H:%M:%S", "yyyy-MM-dd'T'HH:mm:ss", "YYYY-MM-DD\"T\"HH24:MI:SS", american, false},
    {"%Y-%m-%dT%H:%M:%SZ", "yyyy-MM-dd'T'HH:mm:ssX", "YYYY-MM-DD\"T\"HH24:MI:SS\"Z\"", american,
     true},
    {"%d.%m.%Y %H:%M", "dd.MM.yyyy HH:mm", "DD.MM.YYYY HH24:MI", german, false},
    {"%d.%m.%Y %H:%M:%S", "dd.MM.yyyy HH:mm:ss", "DD.MM.YYYY HH24:MI:SS", german, false},
    {"%d/%m/%Y %H:%M", "dd/MM/yyyy HH:mm", "DD/MM/YYYY HH24:MI", british, false},
}};

/// Reads one part of a date, of so many digits, within bounds. Gives -1 if it is none.
int part(std::u16string_view& value, std::size_t digits, int least, int most) {
    if (value.size() < digits) {
        return -1;
    }
    int number = 0;
    for (const char16_t unit : value.substr(0, digits)) {
        if (unit < u'0' || unit > u'9') {
            return -1;
        }
        number = 10 * number + (unit - u'0');
    }
    value.remove_prefix(digits);
    return number < least || number > most ? -1 : number;
}

int days_in(int month, int year) {
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool is_leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && is_leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

struct Parts {
    int year = 0;
    int month = 0;
    int day = 0;
};

/// Reads what stands for one letter of a format; the years are those that every tool can hold.
bool take(char letter, std::u16string_view& value, Parts& parts) {
    switch (letter) {
    case 'Y':
        return (parts.year = part(value, 4, 1700, 2200)) >= 0;
    case 'm':
        return (parts.month = part(value, 2, 1, 12)) >= 0;
    case 'd':
        return (parts.day = part(value, 2, 1, 31)) >= 0;
    case 'H':
        return part(value, 2, 0, 23) >= 0;
    default:
        return part(value, 2, 0, 59) >= 0;
    }
}

bool is_written_as(std::u16string_view value, std::string_view format) {
    Parts parts;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] == '%') {
            if (!take(format[++i], value, parts)) {
                return false;
            }
        } else if (value.empty() || value.front() != static_cast<char16_t>(format[i])) {
            return false;
        } else {
            value.remove_prefix(1);
        }
    }
    return value.empty() && parts.day <= days_in(parts.month, parts.year);
}

} // namespace

DateFormats date_formats_of(std::u16string_view value) {
    constexpr std::size_t shortest = 10;
    constexpr std::size_t longest = 20;
    DateFormats found = 0;
    if (value.size() >= shortest && value.size() <= longest) {
        for (std::size_t i = 0; i < formats.size(); ++i) {
            found |= is_written_as(value, formats[i].strptime) ? DateFormats{1} << i : 0U;
        }
    }
    return found;
}

const DateFormat* only_format(DateFormats set) {
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (set == DateFormats{1} << i) {
            return &formats[i];
        }
    }
    return nullptr;
}

bool has_time(const DateFormat& format) {
    return std::string_view(format.strptime).find("%H") != std::string_view::npos;
}

} // namespace import_statements
