#pragma once

#include <array>
#include <string_view>

/// The forms of dates, written in a small language that `is_datetime` reads. Its elements:
///
///     yyyy  year, four digits            y  year, two or four digits
///     mm    month, two digits            m  month, one or two digits      mmm  month's name
///     dd    day, two digits              d  day, one or two digits
///     hh    hour, two digits             h  hour, one or two digits       u    hour from 1 to 12
///     nn    minute    ss  second         ww  week    k  day of the week as a number
///     xx    hours of an offset           oo  minutes of an offset
///     9     any number of digits, at least one
///     ' '   any number of blanks, or none
///     ~     "/" or "-", the same one throughout
///     {.,}  one unit of those in the braces
///     [ ]   the part between may be missing
///     others in lower case, and "_": a part of that letter in `parts`
///
/// Anything else stands for itself, in any case. A single letter takes all digits that stand
/// together; a run of letters takes as many as it is long, so that `yyyymmdd` works. Names are
/// English, in any case, and may be cut short after the third letter.
namespace zentor::io::text::typeconversion::date_shapes {

struct Part {
    char letter;
    std::string_view shape;
};

/// What the shapes of dates are put together from. Of several parts of one letter the first that
/// fits is taken.
inline constexpr auto parts = std::to_array<Part>({
    {'_', " [{/-.,}] "},             // between the day, a month's name and the year
    {'t', "jc"},                     // a time of day behind a date
    {'j', " , "},                    // between the two: Jan 2, 2020, 10:11
    {'j', "{ } "},                   // 2020-01-02 10:11
    {'j', "T"},                      // 2020-01-02T10:11
    {'c', "u:nn[:ss[f]] p[ z]"},     // 5:06 PM
    {'c', "h:nn[:ss[f]][ z]"},       // 17:06:07.5 +0100
    {'f', "{.,}9"},                  // fraction of a second
    {'p', "{AP}[.]M[.]"},            // AM, p.m.
    {'z', "a[{+-}xx[[:]oo]][ (a)]"}, // UTC, GMT+0100 (CET)
    {'z', "{+-}xx[[:]oo][ (a)]"},    // +01:00, -0800 (PST)
    {'a', "Z"},                      // letters of zones
    {'a', "UT[C]"},
    {'a', "GMT"},
    {'a', "MSK"},
    {'a', "{ACEHMP}{SD}T"}, // EST, PDT
    {'a', "{BIJK}ST"},      // BST, JST
    {'a', "{CEW}E[S]T"},    // CET, WEST
    {'a', "A{CEW}{SD}T"},   // AEST, ACDT
    {'a', "NZ{SD}T"},
});

/// Every date, a weekday in front taken off, has one of these shapes from its first unit to its
/// last. Points are the marks of versions and of section numbers too. So with points, day and month
/// have two digits each, unless the year stands last and has four: 2020.1.2 and 1.2.03 are no
/// dates.
inline constexpr auto dates = std::to_array<std::string_view>({
    "yyyy~m~d[t]",                     // 2020-01-02T10:11:12.5+01:00, 2020/1/2 10:11
    "yyyy.mm.dd[t]",                   // 2020.01.02 10:11
    "yyyymmddt",                       // 20200102 10:11:12; a plain number without the time
    "yyyy[-]mm[-]ddThh[nn[ss[f]]][z]", // 20200102T101112Z
    "yyyy-mm",                         // 2020-01
    "yyyy-Www[-k]",                    // 2020-W05-3
    "yy~mm~dd[t]",                     // 99-12-31
    "yy.mm.dd[t]",                     // 99.12.31
    "d~m~y[t]",                        // 31/12/1999, 1-2-03 10:11
    "d.m.yyyy[t]",                     // 1.2.2003 10:11
    "dd.mm.yy[t]",                     // 31.12.99
    "m~d~y[t]",                        // 12/31/1999, 1/2/03 5:06 PM
    "m.d.yyyy[t]",                     // 12.31.1999
    "mm.dd.yy[t]",                     // 12.31.99
    "d_mmm_y[t]",                      // 31-Dec-99, 2 January 2020, 02JAN2020 10:11
    "mmm_d_y[t]",                      // Jan. 2, 2020, 10:11 AM
    "yyyy_mmm[_d[t]]",                 // 2020-Jan-02, 2020 January
    "mmm_yyyy",                        // January 2020
    "mmm~yy",                          // Jan-20
    "mmm_dt[ yyyy]",                   // Apr  4 08:12:03, Apr 04 08:12:03 PDT 2016
    "d_mmm_yyyy:c",                    // 10/Oct/2000:13:55:36 -0700, 02JAN2020:10:11
    "u:nn[:ss[f]] p",                  // 10:11 PM
});

} // namespace zentor::io::text::typeconversion::date_shapes
