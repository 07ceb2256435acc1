#include "advice/numbers_as_names.hpp"

#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "ascii.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// A four-digit year.
bool is_year(std::u16string_view cell) {
    const std::u16string_view text = bare(cell);
    return text.size() == 4 && std::all_of(text.begin(), text.end(), ascii::is_digit) &&
           (text.substr(0, 2) == u"19" || text.substr(0, 2) == u"20");
}

/// Whether more than a fifth of the cells of a column that hold something are years.
bool holds_years(const Grid& grid, std::size_t column) {
    std::size_t filled = 0;
    std::size_t years = 0;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        filled += bare(grid.cell(row, column)).empty() ? 0U : 1U;
        years += is_year(grid.cell(row, column)) ? 1U : 0U;
    }
    return years * 5 > filled;
}

/// The number that `text` is; `SIZE_MAX` for other texts, and for those of more than four digits.
std::size_t small_number(std::u16string_view text) {
    if (text.empty() || text.size() > 4 ||
        !std::all_of(text.begin(), text.end(), ascii::is_digit)) {
        return SIZE_MAX;
    }
    std::size_t number = 0;
    for (const char16_t digit : text) {
        number = number * 10 + static_cast<std::size_t>(digit - u'0');
    }
    return number;
}

/// Whether most cells of `row` are years, over columns that hold none.
bool is_row_of_years(const std::vector<std::u16string_view>& row, const Grid& grid) {
    std::size_t years = 0;
    for (std::size_t column = 0; column < std::min(row.size(), grid.columns); ++column) {
        if (is_year(row[column])) {
            ++years;
            if (holds_years(grid, column)) {
                return false;
            }
        }
    }
    return years >= 2 && years * 2 >= row.size();
}

/// Whether three or more cells behind the first count on, and the first is no number.
template <class CellAt>
bool counts_on(std::size_t cells, CellAt cell_at) {
    constexpr std::size_t least_numbers = 3;
    if (cells <= least_numbers || looks_like_number(bare(cell_at(0)))) {
        return false;
    }
    const std::size_t first = small_number(bare(cell_at(1)));
    for (std::size_t i = 2; i < cells && first != SIZE_MAX; ++i) {
        if (small_number(bare(cell_at(i))) != first + i - 1) {
            return false;
        }
    }
    return first != SIZE_MAX;
}

/// Whether `row` counts on, and no row of the grid does.
bool is_counting_row(const std::vector<std::u16string_view>& row, const Grid& grid) {
    if (!counts_on(row.size(), [&](std::size_t i) { return row[i]; })) {
        return false;
    }
    for (std::size_t below = 0; below < grid.rows(); ++below) {
        if (counts_on(grid.columns, [&](std::size_t i) { return grid.cell(below, i); })) {
            return false;
        }
    }
    return true;
}

/// Whether the cells are one word that is numbered from 0 or 1 on: `V1`, `V2`, `V3`.
bool are_numbered(const std::vector<std::u16string_view>& row) {
    const std::u16string_view first = bare(row.front());
    const std::size_t length = first.find_last_not_of(u"01") + 1;
    const std::u16string_view word = first.substr(0, length);
    const std::size_t least = small_number(first.substr(length));
    if (row.size() < 2 || !has_letter(word) || least > 1) {
        return false;
    }
    for (std::size_t i = 1; i < row.size(); ++i) {
        const std::u16string_view text = bare(row[i]);
        if (!text.starts_with(word) || small_number(text.substr(length)) != least + i) {
            return false;
        }
    }
    return true;
}

/// Whether no cell of `grid` begins with the word of the numbered `row`.
bool is_word_of_its_own(const std::vector<std::u16string_view>& row, const Grid& grid) {
    const std::u16string_view first = bare(row.front());
    const std::u16string_view word = first.substr(0, first.find_last_not_of(u"01") + 1);
    return std::none_of(grid.cells.begin(), grid.cells.end(), [&](std::u16string_view cell) {
        const std::u16string_view text = bare(cell);
        return text.size() > word.size() && ascii::is_digit(text[word.size()]) &&
               ascii::equals_ignoring_case(text.substr(0, word.size()), word);
    });
}

} // namespace

bool names_by_numbers(const std::vector<std::u16string_view>& row, const Grid& grid) {
    return is_row_of_years(row, grid) || is_counting_row(row, grid);
}

bool names_by_numbering(const std::vector<std::u16string_view>& row, const Grid& grid) {
    return are_numbered(row) && is_word_of_its_own(row, grid);
}

} // namespace textio::advice
