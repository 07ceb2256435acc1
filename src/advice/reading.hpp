/// \file
/// One reading of a text under one set of assumptions, and its grade.
#pragma once

#include "advice/cell_figures.hpp"
#include "advice/grid.hpp"
#include "advice/positions.hpp"
#include "advice/regular_run.hpp"
#include "textio/strategy.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>

namespace textio::advice {

/// The factors of a score.
enum class TermKind : std::uint8_t {
    consistency, ///< the rows of the table keep one width
    coverage,    ///< the table is most of the text
    alignment,   ///< the cells stand flush in their columns
    types,       ///< the cells look like values, and alike down a column
    columns,     ///< columns that agree prove more the more they are
    rows,        ///< few rows prove little
    prior,       ///< the delimiter is seldom in ordinary text
    first,       ///< the first line of the text fits
    quotes,      ///< quotes of the text are not ignored
    context,     ///< what the whole text looks like, and what other readings show, agrees
};

inline constexpr std::size_t term_kinds = 10;

/// What hosts show for a factor.
inline constexpr std::array<std::string_view, term_kinds> term_names = {
    "consistency", "coverage", "alignment", "types",  "columns",
    "rows",        "prior",    "first",     "quotes", "context"};

/// The factors of one reading; one that says nothing is 1.
class Terms {
public:
    double& operator[](TermKind kind) { return values_[static_cast<std::size_t>(kind)]; }
    double operator[](TermKind kind) const { return values_[static_cast<std::size_t>(kind)]; }
    [[nodiscard]] const std::array<double, term_kinds>& values() const { return values_; }

    /// The score.
    [[nodiscard]] double product() const {
        return std::accumulate(values_.begin(), values_.end(), 1.0, std::multiplies<>());
    }

private:
    std::array<double, term_kinds> values_ = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
};

/// A reading of the text. The sample belongs to the strategy; grid and figures are of the table
/// that the reading shows.
struct Reading {
    enums::StrategyMode mode = enums::StrategyMode::line_reader;
    std::u16string delimiter;                  ///< of delimited text
    char16_t quote = 0;                        ///< 0 for none
    std::shared_ptr<GenericStrategy> strategy; ///< null for positions until they are proposed
    RegularRun run;                            ///< of delimited and space-aligned text
    Positions positions;                       ///< of fixed widths
    Grid grid;                                 ///< empty for tagged records
    CellFigures figures;                       ///< of the grid
    EmptyEdges edges;                          ///< columns left out of the grid
    std::size_t columns = 0;                   ///< columns of the table
    double flush = 1; ///< of space-aligned text: the share of cells that stand flush
    Terms terms;
    double score = 0;

    [[nodiscard]] bool is_delimited() const { return mode == enums::StrategyMode::delimited; }
    [[nodiscard]] bool is_blank_separated() const {
        return mode == enums::StrategyMode::space_aligned;
    }
    [[nodiscard]] bool is_at_positions() const { return mode == enums::StrategyMode::fixed_width; }
    [[nodiscard]] bool is_line_by_line() const { return mode == enums::StrategyMode::line_reader; }
};

/// The order of readings, the best first.
[[nodiscard]] inline bool is_better(const Reading& one, const Reading& other) {
    return one.score > other.score;
}

} // namespace textio::advice
