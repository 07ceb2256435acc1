/// \file
/// What the cells of a table look like, column by column.
#pragma once

#include "advice/cell_kind.hpp"
#include "advice/grid.hpp"

#include <array>
#include <cstddef>
#include <vector>

namespace textio::advice {

/// What most cells of a column are.
struct ColumnFigures {
    CellKind commonest = CellKind::missing; ///< the commonest kind but `missing`, if there is any
    std::size_t filled = 0;                 ///< graded cells that hold something

    /// Whether it is a column of numbers or dates.
    [[nodiscard]] bool is_typed() const noexcept { return textio::advice::is_typed(commonest); }
};

/// The figures of a grid.
struct CellFigures {
    double types = 0;              ///< mean over the columns; 1 for a table of numbers alone
    std::size_t typed_columns = 0; ///< columns of numbers or dates
    std::size_t quoted = 0;        ///< cells in quotes from end to end
    std::size_t broken = 0;        ///< cells that are cut in the middle
    std::size_t filled_typed = 0;  ///< cells of typed columns that hold something
    std::vector<ColumnFigures> columns;
};

/// Looks at every cell of `grid`.
[[nodiscard]] CellFigures figures_of(const Grid& grid, CellJudge& judge);

} // namespace textio::advice
