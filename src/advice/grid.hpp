/// \file
/// Some rows of a table, cell by cell: what a reading is graded by.
#pragma once

#include "advice/regular_run.hpp"
#include "textio/field.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace textio::advice {

/// Some rows of a table, evenly taken. Cells are views of the text, blanks and quotes included.
struct Grid {
    std::size_t columns = 0;
    std::vector<std::u16string_view> cells; ///< row after row

    [[nodiscard]] std::size_t rows() const { return columns == 0 ? 0 : cells.size() / columns; }
    [[nodiscard]] std::u16string_view cell(std::size_t row, std::size_t column) const {
        return cells[row * columns + column];
    }
    [[nodiscard]] std::span<const std::u16string_view> row(std::size_t row) const {
        return std::span(cells).subspan(row * columns, columns);
    }
};

/// Picks the rows that are graded: some forty of `rows`, evenly, and never the first one if there
/// is another, for it may hold the names. Of a table of many columns fewer rows tell as much.
class RowPicker {
public:
    RowPicker(std::size_t rows, std::size_t columns)
        : rows_(rows), step_(rows / (graded_rows(columns) + 1) + 1), passed_(rows == 1 ? 1 : 0) {}

    /// How many rows it takes at the most.
    [[nodiscard]] std::size_t most() const { return rows_ / step_ + 1; }

    /// Whether the next row is one of them.
    bool takes() {
        const std::size_t row = passed_++;
        return row != 0 && (row - 1) % step_ == 0;
    }

private:
    static std::size_t graded_rows(std::size_t columns) {
        constexpr std::size_t cells = 480;
        return std::clamp<std::size_t>(cells / (columns + 1), 16, 40);
    }

    std::size_t rows_;
    std::size_t step_;
    std::size_t passed_;
};

/// Rows of the table that `run` shows; cells that a row lacks are empty.
[[nodiscard]] Grid grid_of(const FieldArray& sample, const RegularRun& run);

/// The fields of the first row that keeps the width of `run`.
[[nodiscard]] std::span<const Field> first_row_of(const FieldArray& sample, const RegularRun& run);

/// Columns at the ends of a table that never hold anything.
struct EmptyEdges {
    bool leading = false;     ///< the first column is empty: delimiters begin the lines
    std::size_t trailing = 0; ///< so many columns at the end are

    [[nodiscard]] bool are_any() const { return leading || trailing != 0; }
};

/// The empty columns at the ends of `grid`, whose first row, names perhaps, was `first`.
[[nodiscard]] EmptyEdges empty_edges_of(const Grid& grid, std::span<const Field> first);

/// `grid` without these columns.
[[nodiscard]] Grid without_edges(const Grid& grid, const EmptyEdges& edges);

} // namespace textio::advice
