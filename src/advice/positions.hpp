/// \file
/// Columns at fixed positions, found in the lines of a text.
#pragma once

#include "advice/grid.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// Columns of fixed positions that a run of lines keeps: no cell stands across a start.
struct Positions {
    std::vector<std::size_t> starts; ///< where each column starts, in code units, ascending
    std::size_t first_line = 0;      ///< line of the sample where they begin to hold
    std::size_t last_line = 0;       ///< line of the sample where they last hold
    std::size_t kept = 0;            ///< filled lines of the run that keep them
    std::size_t rows = 0;            ///< filled lines of the run
    std::size_t behind = 0;          ///< filled lines behind the run
    std::size_t all = 0;             ///< filled lines of the sample
    double alignment = 0;            ///< how flush the cells stand in their columns
    bool has_ruler = false;          ///< a line of dashes or bars shows the columns
    bool has_heading = false;        ///< the words of the line above stand flush with the columns
    bool has_gaps = false;           ///< most columns have two blanks before them on all lines
    bool has_padding = false;        ///< cells are padded: columns that never are, are none
    bool is_padded = false;          ///< the lines are all of one length
    bool has_no_columns = false;     ///< records of one length; the starts are where units change

    /// Whether more than blanks on all lines shows the columns.
    [[nodiscard]] bool are_shown() const noexcept {
        return has_ruler || has_heading || has_gaps || is_padded;
    }
    [[nodiscard]] double consistency() const noexcept; ///< kept, of the run and what is behind it
    [[nodiscard]] double coverage() const noexcept;    ///< kept, of all filled lines
};

/// The sets of columns worth grading, none where the lines keep no positions.
[[nodiscard]] std::vector<Positions> find_positions(const FieldArray& lines);

/// The text of a column in a line; empty where the line does not reach it.
[[nodiscard]] std::u16string_view cell_at(std::u16string_view line, const Positions& positions,
                                          std::size_t column);

/// Some rows of the lines cut at `positions`.
[[nodiscard]] Grid grid_of(const FieldArray& lines, const Positions& positions);

/// The widths that a reader needs for these columns: each but the last runs to the next start, and
/// the last to the end of the longest line.
[[nodiscard]] std::vector<std::size_t> widths_of(const FieldArray& lines,
                                                 const Positions& positions);

} // namespace textio::advice
