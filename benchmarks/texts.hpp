/// \file
/// Texts to measure with. Every row is made anew from a seeded random source: a processor learns a
/// text of repeated rows by heart, and then a read looks faster than it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace bench {

/// The same sequence for the same seed.
class RandomSource {
public:
    explicit RandomSource(std::uint64_t seed = 1) : engine_(seed) {}

    /// A number from `low` up to and including `high`.
    std::size_t between(std::size_t low, std::size_t high) {
        return low + static_cast<std::size_t>(engine_() % (high - low + 1));
    }

    char16_t one_of(std::u16string_view units) { return units[between(0, units.size() - 1)]; }

    std::u16string letters(std::size_t count);
    std::u16string digits(std::size_t count);

    /// A number with `decimals` digits behind `decimal_mark`.
    std::u16string decimal(std::size_t most_digits, std::size_t decimals, char16_t decimal_mark);

    /// A date as 2024-03-09, the day at most the 28th.
    std::u16string date();

private:
    std::mt19937_64 engine_;
};

inline constexpr std::size_t table_columns = 10;

/// A table of letters and digits in ten columns, for the readers alone.
struct TableShape {
    std::size_t least_field_units = 8; ///< without quotes
    std::size_t most_field_units = 8;
    std::u16string_view delimiter = u",";
    std::u16string_view line_ending = u"\n";
    bool quoted = false;         ///< fields stand in quotes, every fourth with a delimiter inside
    std::size_t most_blanks = 0; ///< instead of the delimiter, runs of 1 to so many blanks
};

/// As many whole rows of such a table as `units` code units have room for.
std::u16string table_of_units(const TableShape& shape, std::size_t units);
std::u16string table_of_rows(const TableShape& shape, std::size_t rows);

/// Ten columns of 8 units without anything between: numbers to the right, words to the left.
std::u16string fixed_width_table_of_units(std::size_t units);
std::u16string fixed_width_table_of_rows(std::size_t rows);

/// Texts as people import them, one for each layout that detection tells apart.
std::u16string comma_rows(std::size_t rows);
std::u16string semicolon_rows(std::size_t rows); ///< with decimal commas
std::u16string tab_rows(std::size_t rows);
std::u16string bar_rows(std::size_t rows);
std::u16string space_aligned_rows(std::size_t rows);
std::u16string fixed_width_rows(std::size_t rows);
std::u16string quoted_rows(std::size_t rows); ///< some with line breaks inside
std::u16string prose_rows(std::size_t rows);
std::u16string date_rows(std::size_t rows); ///< one date per line

} // namespace bench
