/// \file
/// The values that the shapes of dates stand for: numbers with their limits, and names.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace zentor::io::text::typeconversion {

/// How far a text has been read, and the values read so far. Values not read yet are such that they
/// forbid nothing: without a year, 29 February is a date.
struct Reading {
    std::size_t position = 0;
    int year = 2000; ///< two digits as they stand: their leap years are those of this century
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    char16_t separator = 0; ///< the one that "~" stands for; 0 as long as it is open
};

/// A number in a shape, by its letter, and what it may be.
struct Number {
    char letter;
    int least;
    int most;
    int Reading::*value; ///< where it is kept; null if no other value bears on it
};

inline constexpr auto numbers = std::to_array<Number>({
    {'y', 0, 9999, &Reading::year},
    {'m', 1, 12, &Reading::month},
    {'d', 1, 31, &Reading::day},
    {'h', 0, 24, &Reading::hour},
    {'u', 1, 12, nullptr},
    {'n', 0, 59, &Reading::minute},
    {'s', 0, 60, &Reading::second}, // 60 in a leap second
    {'w', 1, 53, nullptr},
    {'k', 1, 7, nullptr},
    {'x', 0, 14, nullptr},
    {'o', 0, 59, nullptr},
});

inline constexpr std::array<std::u16string_view, 12> month_names{
    u"January", u"February", u"March",     u"April",   u"May",      u"June",
    u"July",    u"August",   u"September", u"October", u"November", u"December"};

inline constexpr std::array<std::u16string_view, 7> weekday_names{
    u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday", u"Sunday"};

} // namespace zentor::io::text::typeconversion
