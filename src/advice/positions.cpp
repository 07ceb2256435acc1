#include "advice/positions.hpp"

#include "advice/column_evidence.hpp"
#include "advice/counts.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"
#include "advice/regions.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

namespace textio::advice {

namespace {

/// Finds the run of lines that keeps given columns best, while the lines pass by.
class PositionsRun {
public:
    explicit PositionsRun(Positions& positions) : positions_(positions) {}

    void add(std::size_t line, bool keeps) {
        if (sum_ <= 0) {
            sum_ = 0;
            start_ = line;
            kept_ = 0;
            rows_ = 0;
        }
        sum_ += keeps ? 1 : -2;
        kept_ += one_if(keeps);
        ++rows_;
        ++positions_.behind;
        if (sum_ > best_) {
            best_ = sum_;
            positions_.first_line = start_;
            positions_.last_line = line;
            positions_.kept = kept_;
            positions_.rows = rows_;
            positions_.behind = 0;
        }
    }

private:
    Positions& positions_;
    std::ptrdiff_t sum_ = 0;
    std::ptrdiff_t best_ = 0;
    std::size_t start_ = 0;
    std::size_t kept_ = 0;
    std::size_t rows_ = 0;
};

/// Fills in the run of lines from `first` on that keeps the columns best, as rows keep a width.
void find_run(const FieldArray& lines, std::size_t first, Positions& positions) {
    positions.all = lines.fields.size();
    PositionsRun run(positions);
    for_each_filled_line(lines, first, lines.line_count(),
                         [&](std::size_t line, std::u16string_view text) {
                             run.add(line, !is_crossed(text, positions.starts));
                         });
}

/// Collects sets of columns, each of them once.
class FoundPositions {
public:
    /// Whether columns with these starts are new, from the line on where their run begins.
    [[nodiscard]] bool are_new(const Positions& positions) const {
        return std::none_of(found_.begin(), found_.end(), [&](const Positions& other) {
            return other.first_line == positions.first_line && other.starts == positions.starts;
        });
    }
    void add(Positions positions) { found_.push_back(std::move(positions)); }
    [[nodiscard]] std::vector<Positions> take() { return std::move(found_); }

private:
    std::vector<Positions> found_;
};

std::u16string_view line_above(const FieldArray& lines, std::size_t line) {
    return line == 0 ? std::u16string_view() : text_of(lines, line - 1);
}

/// Whether the two lines above a heading stand in the columns as it does: then it is a row as well.
bool is_among_rows(const FieldArray& lines, std::size_t heading, const Starts& starts,
                   const std::vector<ColumnEdges>& edges) {
    return heading >= 2 && stands_flush(text_of(lines, heading - 1), starts, edges) &&
           stands_flush(text_of(lines, heading - 2), starts, edges);
}

/// Adds the columns that blanks on all lines of the region leave, if they are at least two.
void add_columns_of_region(const FieldArray& lines, Region region, FoundPositions& found) {
    const auto filled = filled_lines(lines, region);
    if (filled.size() < 2) {
        return;
    }
    Positions positions;
    positions.is_padded = are_of_one_length(filled);
    const auto counts =
        filled_counts(filled, positions.is_padded ? filled.front().size() : settled_length(filled));
    const std::size_t most = filled.size() >= 50 ? filled.size() / 100 : 0;
    Starts& starts = positions.starts;
    starts = starts_between_cuts(counts, most);
    if (starts.size() < 2) {
        return;
    }
    positions.has_gaps = have_gaps(counts, most, starts);
    const std::u16string_view heading = line_above(lines, region.first);
    Starts named = starts;
    if (!heading.empty()) {
        join_unnamed(heading, counts, most, named);
    }
    auto edges = edges_of(filled, named);
    positions.has_heading = !heading.empty() && stands_flush(heading, named, edges) &&
                            !is_among_rows(lines, region.first - 1, named, edges);
    if (positions.has_heading) {
        starts = std::move(named);
    } else if (named.size() != starts.size()) {
        edges = edges_of(filled, starts);
    }
    find_run(lines, region.first, positions);
    if (found.are_new(positions)) {
        positions.alignment = alignment_of(edges);
        positions.has_padding = are_mostly_padded(filled, starts);
        found.add(std::move(positions));
    }
}

/// Adds columns that start where the given ones do, whatever the lines hold; those of a ruler are
/// shown by it alone, and cells may stand anywhere in them.
void add_columns_that_start_at(const FieldArray& lines, std::size_t first, Positions positions,
                               FoundPositions& found) {
    positions.has_padding = true;
    find_run(lines, first, positions);
    if (positions.kept == 0 || !found.are_new(positions)) {
        return;
    }
    const auto filled = filled_lines(lines, {positions.first_line, positions.last_line + 1});
    positions.is_padded = are_of_one_length(filled);
    positions.alignment =
        positions.has_ruler ? 1 : alignment_of(edges_of(filled, positions.starts));
    found.add(std::move(positions));
}

void add_columns_below_heading(const FieldArray& lines, std::size_t first, FoundPositions& found) {
    Positions positions;
    positions.starts = heading_starts(text_of(lines, first - 1));
    positions.has_heading = true;
    if (positions.starts.size() > 2) {
        add_columns_that_start_at(lines, first, std::move(positions), found);
    }
}

void add_columns_below_ruler(const FieldArray& lines, Region ruler, FoundPositions& found) {
    Positions positions;
    positions.starts = ruler_starts(text_of(lines, ruler.first));
    positions.has_ruler = true;
    if (positions.starts.size() > 1) {
        add_columns_that_start_at(lines, ruler.end, std::move(positions), found);
    }
}

void add_cells(std::u16string_view line, const Positions& positions, Grid& grid) {
    for (std::size_t column = 0; column < grid.columns; ++column) {
        grid.cells.push_back(cell_at(line, positions, column));
    }
}

} // namespace

double Positions::consistency() const noexcept {
    const double weighed =
        static_cast<double>(rows) + weights::behind_run * static_cast<double>(behind);
    return share_of(static_cast<double>(kept), weighed);
}

double Positions::coverage() const noexcept {
    return share_of(kept, all);
}

std::vector<Positions> find_positions(const FieldArray& lines) {
    FoundPositions found;
    const Regions regions = find_regions(lines);
    for (const Region& ruler : regions.rulers) {
        add_columns_below_ruler(lines, ruler, found);
    }
    for (const Region& region : regions.tables) {
        add_columns_of_region(lines, region, found);
        if (region.first > 0) {
            add_columns_below_heading(lines, region.first, found);
        }
    }
    return found.take();
}

std::u16string_view cell_at(std::u16string_view line, const Positions& positions,
                            std::size_t column) {
    return cell_of(line, positions.starts[column], end_of_column(positions.starts, column));
}

Grid grid_of(const FieldArray& lines, const Positions& positions) {
    Grid grid;
    grid.columns = positions.starts.size();
    RowPicker picker(positions.rows, grid.columns);
    grid.cells.reserve(grid.columns * picker.most());
    for_each_filled_line(lines, positions.first_line, positions.last_line + 1,
                         [&](std::size_t, std::u16string_view text) {
                             if (picker.takes()) {
                                 add_cells(text, positions, grid);
                             }
                         });
    return grid;
}

std::vector<std::size_t> widths_of(const FieldArray& lines, const Positions& positions) {
    const std::size_t end = std::min(positions.last_line + 1, lines.line_count());
    std::size_t longest = 0;
    for_each_filled_line(
        lines, positions.first_line, end,
        [&](std::size_t, std::u16string_view text) { longest = std::max(longest, text.size()); });
    std::vector<std::size_t> widths;
    std::size_t begin = 0;
    for (std::size_t column = 0; column < positions.starts.size(); ++column) {
        const std::size_t next = end_of_column(positions.starts, column);
        const std::size_t column_end = std::min(next, std::max(longest, begin + 1));
        widths.push_back(column_end - begin);
        begin = next;
    }
    return widths;
}

} // namespace textio::advice
