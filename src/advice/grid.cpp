#include "advice/grid.hpp"

#include "advice/lines.hpp"

namespace textio::advice {

Grid grid_of(const FieldArray& sample, const RegularRun& run) {
    Grid grid;
    grid.columns = run.width;
    RowPicker picker(run.is_padded ? run.rows : run.kept, run.width);
    grid.cells.reserve(grid.columns * picker.most());
    for (std::size_t line = run.first_line; line <= run.last_line; ++line) {
        const auto fields = sample.line(line);
        if (run.holds(fields.size()) && picker.takes()) {
            for (const Field& field : fields) {
                grid.cells.push_back(field.view());
            }
            grid.cells.resize(grid.cells.size() + run.width - fields.size());
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

EmptyEdges empty_edges_of(const Grid& grid, std::span<const Field> first) {
    const auto is_empty = [&](std::size_t column) {
        if (column < first.size() && !trimmed(first[column].view()).empty()) {
            return false;
        }
        for (std::size_t row = 0; row < grid.rows(); ++row) {
            if (!trimmed(grid.cell(row, column)).empty()) {
                return false;
            }
        }
        return true;
    };
    EmptyEdges edges;
    while (edges.trailing < grid.columns && is_empty(grid.columns - 1 - edges.trailing)) {
        ++edges.trailing;
    }
    edges.leading = edges.trailing < grid.columns && is_empty(0);
    return edges;
}

Grid without_edges(const Grid& grid, const EmptyEdges& edges) {
    const std::size_t begin = edges.leading ? 1 : 0;
    const std::size_t end = grid.columns - edges.trailing;
    Grid kept;
    kept.columns = end - begin;
    kept.cells.reserve(kept.columns * grid.rows());
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        for (std::size_t column = begin; column < end; ++column) {
            kept.cells.push_back(grid.cell(row, column));
        }
    }
    return kept;
}

} // namespace textio::advice
