#include "advice/cell_figures.hpp"

#include "advice/weights.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

using Counts = std::array<std::size_t, cell_kinds>;

constexpr std::size_t index_of(CellKind kind) {
    return static_cast<std::size_t>(kind);
}

Counts count_kinds(const Grid& grid, std::size_t column, CellJudge& judge) {
    Counts counts{};
    const std::size_t rows = grid.rows();
    for (std::size_t row = 0; row < rows; ++row) {
        ++counts[index_of(judge.judge(grid.cell(row, column)))];
    }
    return counts;
}

CellKind commonest_kind(const Counts& counts) {
    const auto* const first = counts.begin() + index_of(CellKind::missing) + 1;
    const auto* const most = std::max_element(first, counts.end());
    return *most == 0 ? CellKind::missing : static_cast<CellKind>(most - counts.begin());
}

/// How many cells are of the column's commonest kind. Quotes around some texts mix in nothing:
/// many programs write them only where a text needs them.
std::size_t cells_alike(const Counts& counts, CellKind commonest) {
    const bool are_texts = commonest == CellKind::word || commonest == CellKind::words;
    return counts[index_of(commonest)] + (are_texts ? counts[index_of(CellKind::quoted)] : 0);
}

/// Mean weight of a column's cells; a column of mixed kinds counts half for what is mixed in.
double grade_of(const Counts& counts, const ColumnFigures& column, std::size_t rows) {
    double weight = 0;
    for (std::size_t kind = 0; kind < cell_kinds; ++kind) {
        weight += weights::of_cells[kind] * static_cast<double>(counts[kind]);
    }
    const double share = column.filled == 0
                             ? 1
                             : static_cast<double>(cells_alike(counts, column.commonest)) /
                                   static_cast<double>(column.filled);
    return weight / static_cast<double>(rows) * (1 + share) / 2;
}

} // namespace

CellFigures figures_of(const Grid& grid, CellJudge& judge) {
    CellFigures figures;
    const std::size_t rows = grid.rows();
    if (rows == 0) {
        return figures;
    }
    figures.columns.reserve(grid.columns);
    double sum = 0;
    for (std::size_t index = 0; index < grid.columns; ++index) {
        const Counts counts = count_kinds(grid, index, judge);
        const ColumnFigures column{commonest_kind(counts),
                                   rows - counts[index_of(CellKind::missing)]};
        sum += grade_of(counts, column, rows);
        figures.quoted += counts[index_of(CellKind::quoted)];
        figures.broken += counts[index_of(CellKind::broken)];
        if (column.is_typed()) {
            ++figures.typed_columns;
            figures.filled_typed += column.filled;
        }
        figures.columns.push_back(column);
    }
    figures.types = sum / static_cast<double>(grid.columns);
    return figures;
}

} // namespace textio::advice
