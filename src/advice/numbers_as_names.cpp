#include "advice/numbers_as_names.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "ascii.hpp"

#include <algorithm>
#include <numeric>

namespace textio::advice {

namespace {

/// A four-digit year.
bool is_year(std::u16string_view cell) {
    const std::u16string_view text = bare(cell);
    const bool is_recent = text.starts_with(u"19") || text.starts_with(u"20");
    return is_recent && text.size() == 4 && ascii::skip_digits(text, 0) == 4;
}

/// Whether more than a fifth of the cells of a column that hold something are years.
bool holds_years(const Grid& grid, std::size_t column) {
    std::size_t filled = 0;
    std::size_t years = 0;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        filled += one_if(!bare(grid.cell(row, column)).empty());
        years += one_if(is_year(grid.cell(row, column)));
    }
    return years * 5 > filled;
}

/// Whether most cells of `row` are years, over columns that hold none.
bool is_row_of_years(const std::vector<std::u16string_view>& row, const Grid& grid) {
    std::size_t years = 0;
    for (std::size_t column = 0; column < std::min(row.size(), grid.columns); ++column) {
        if (!is_year(row[column])) {
            continue;
        }
        ++years;
        if (holds_years(grid, column)) {
            return false;
        }
    }
    return years >= 2 && years * 2 >= row.size();
}

/// The number that `text` is; `SIZE_MAX` for other texts, and for those of more than four digits.
std::size_t small_number(std::u16string_view text) {
    constexpr std::size_t most_digits = 4;
    const bool is_number =
        !text.empty() && text.size() <= most_digits && ascii::skip_digits(text, 0) == text.size();
    return is_number ? std::accumulate(text.begin(), text.end(), std::size_t{0},
                                       [](std::size_t number, char16_t digit) {
                                           return number * 10 + (digit - u'0');
                                       })
                     : SIZE_MAX;
}

/// Whether the numbers of the cells from `first` up to `end` count on by one.
template <class NumberOf>
bool count_on(std::size_t first, std::size_t end, NumberOf number_of) {
    const std::size_t least = number_of(first);
    std::size_t cell = first;
    while (cell < end && least != SIZE_MAX && number_of(cell) == least + cell - first) {
        ++cell;
    }
    return cell == end;
}

/// Whether three or more cells behind the first count on, and the first is no number.
template <class CellAt>
bool is_counting(std::size_t cells, CellAt cell_at) {
    constexpr std::size_t least_numbers = 3;
    return cells > least_numbers && !looks_like_number(bare(cell_at(0))) &&
           count_on(1, cells, [&](std::size_t i) { return small_number(bare(cell_at(i))); });
}

bool has_counting_row(const Grid& grid) {
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        if (is_counting(grid.columns, [&](std::size_t i) { return grid.cell(row, i); })) {
            return true;
        }
    }
    return false;
}

/// The word of a cell in front of a 0 or 1 at its end.
std::u16string_view numbered_word(std::u16string_view cell) {
    const std::u16string_view text = bare(cell);
    const std::size_t last = text.find_last_not_of(u"01");
    return last == std::u16string_view::npos ? std::u16string_view() : text.substr(0, last + 1);
}

/// Whether the cells are one word that is numbered from 0 or 1 on: `V1`, `V2`, `V3`.
bool are_numbered(const std::vector<std::u16string_view>& row) {
    if (row.size() < 2) {
        return false;
    }
    const std::u16string_view word = numbered_word(row.front());
    const auto number_of = [&](std::size_t i) {
        const std::u16string_view text = bare(row[i]);
        return text.starts_with(word) ? small_number(text.substr(word.size())) : SIZE_MAX;
    };
    return has_letter(word) && number_of(0) <= 1 && count_on(0, row.size(), number_of);
}

bool is_numbered(std::u16string_view text, std::u16string_view word) {
    return text.size() > word.size() && ascii::is_digit(text[word.size()]) &&
           ascii::equals_ignoring_case(text.substr(0, word.size()), word);
}

} // namespace

bool names_by_numbers(const std::vector<std::u16string_view>& row, const Grid& grid) {
    const auto cell_at = [&](std::size_t i) { return row[i]; };
    return is_row_of_years(row, grid) ||
           (is_counting(row.size(), cell_at) && !has_counting_row(grid));
}

bool names_by_numbering(const std::vector<std::u16string_view>& row, const Grid& grid) {
    return are_numbered(row) &&
           std::none_of(grid.cells.begin(), grid.cells.end(),
                        [word = numbered_word(row.front())](std::u16string_view cell) {
                            return is_numbered(bare(cell), word);
                        });
}

} // namespace textio::advice
