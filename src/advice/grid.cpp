#include "advice/grid.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"

#include <functional>
#include <iterator>

namespace textio::advice {

Grid grid_of(const FieldArray& sample, const RegularRun& run) {
    Grid grid;
    grid.columns = run.width;
    RowPicker picker(run.is_padded ? run.rows : run.kept, run.width);
    grid.cells.reserve(grid.columns * picker.most());
    for (std::size_t line = run.first_line; line <= run.last_line; ++line) {
        const auto row = sample.line(line);
        if (run.holds(row.size()) && picker.takes()) {
            const std::size_t end = grid.cells.size() + run.width;
            std::transform(row.begin(), row.end(), std::back_inserter(grid.cells),
                           std::mem_fn(&Field::view));
            grid.cells.resize(end);
        }
    }
    return grid;
}

std::span<const Field> first_row_of(const FieldArray& sample, const RegularRun& run) {
    std::size_t line = run.first_line;
    while (line < run.last_line && sample.line(line).size() != run.width) {
        ++line;
    }
    return sample.line(line);
}

namespace {

/// Whether the names' row has no more in a column than the grid has, which is nothing.
bool is_empty_column(const Grid& grid, std::span<const Field> first, std::size_t column) {
    bool is_empty = column >= first.size() || is_blank_text(first[column].view());
    for (std::size_t row = 0; row < grid.rows() && is_empty; ++row) {
        is_empty = is_blank_text(grid.cell(row, column));
    }
    return is_empty;
}

} // namespace

EmptyEdges empty_edges_of(const Grid& grid, std::span<const Field> first) {
    EmptyEdges edges;
    while (edges.trailing < grid.columns &&
           is_empty_column(grid, first, grid.columns - 1 - edges.trailing)) {
        ++edges.trailing;
    }
    edges.leading = edges.trailing < grid.columns && is_empty_column(grid, first, 0);
    return edges;
}

Grid without_edges(const Grid& grid, const EmptyEdges& edges) {
    const std::size_t begin = one_if(edges.leading);
    Grid kept;
    kept.columns = grid.columns - edges.trailing - begin;
    kept.cells.reserve(kept.columns * grid.rows());
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        const auto cells = grid.row(row).subspan(begin, kept.columns);
        kept.cells.insert(kept.cells.end(), cells.begin(), cells.end());
    }
    return kept;
}

} // namespace textio::advice
