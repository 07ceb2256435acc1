/// \file
/// What the lines of a region say of columns at fixed positions. Positions are code units from the
/// start of a line.
#pragma once

#include "advice/regions.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace textio::advice {

using Lines = std::span<const std::u16string_view>; ///< filled lines; never none
using FilledCount = std::uint16_t;                  ///< of the lines that `filled_lines` gives
using Starts = std::vector<std::size_t>;            ///< where columns start, ascending

/// The filled lines of a region; of a long one some hundred, evenly taken.
[[nodiscard]] std::vector<std::u16string_view> filled_lines(const FieldArray& lines, Region region);

/// The length, blanks at the end not counted, that all but the shortest 30 % of the lines reach.
[[nodiscard]] std::size_t settled_length(Lines lines);

/// On how many lines each of the first `positions` positions is filled.
[[nodiscard]] std::vector<FilledCount> filled_counts(Lines lines, std::size_t positions);

/// Where a filled position follows one that at most `most` lines fill.
[[nodiscard]] Starts starts_between_cuts(std::span<const FilledCount> counts, std::size_t most);

/// Whether at most `most` lines fill any of the two positions before most columns.
[[nodiscard]] bool have_gaps(std::span<const FilledCount> counts, std::size_t most,
                             const Starts& starts);

/// Takes back cuts of one blank over which the heading has no word: these are blanks in a text.
/// Gives how many columns are left.
std::size_t join_unnamed(std::u16string_view heading, std::span<const FilledCount> counts,
                         std::size_t most, Starts& starts);

/// Whether a cell of the line stands across the start of a column.
[[nodiscard]] bool is_crossed(std::u16string_view line, const Starts& starts);

/// Where a column ends: where the next one starts, or never.
[[nodiscard]] std::size_t end_of_column(const Starts& starts, std::size_t column);

/// The text of a line from `begin` up to `end`; empty if the line does not reach that far.
[[nodiscard]] std::u16string_view cell_of(std::u16string_view line, std::size_t begin,
                                          std::size_t end);

/// Where the cells of a column stand in it.
struct ColumnEdges {
    std::size_t width = 0;    ///< from the start of the column to where its last cell ends
    std::size_t cells = 0;    ///< cells that hold something
    std::size_t at_left = 0;  ///< those of them that touch the left edge
    std::size_t at_right = 0; ///< and the right one

    void add(std::u16string_view cell) noexcept;

    /// The share of its cells that touch one edge, whichever has more.
    [[nodiscard]] double flush() const noexcept;
};

[[nodiscard]] std::vector<ColumnEdges> edges_of(Lines lines, const Starts& starts);

/// How flush the cells stand: the mean over the columns of the share of cells that touch the left
/// edge or the right one, whichever is more.
[[nodiscard]] double alignment_of(std::span<const ColumnEdges> edges);

/// Whether nearly all lines have one length, blanks at the end included.
[[nodiscard]] bool are_of_one_length(Lines lines);

/// Whether most words of `heading` start or end where a column does, and most columns have one.
[[nodiscard]] bool stands_flush(std::u16string_view heading, const Starts& starts,
                                std::span<const ColumnEdges> edges);

/// Whether most columns behind the first have a line on which two blanks or more stand in front of
/// their cell: columns that are never padded are none.
[[nodiscard]] bool are_mostly_padded(Lines lines, const Starts& starts);

} // namespace textio::advice
