#include "advice/positions.hpp"

#include "advice/column_evidence.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"
#include "advice/regions.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

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
        kept_ += keeps ? 1U : 0U;
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
    for (std::size_t line = first; line < lines.line_count(); ++line) {
        const auto text = text_of(lines, line);
        if (!text.empty()) {
            run.add(line, !is_crossed(text, positions.starts));
        }
    }
}

/// Columns that blanks on all lines of the region leave; at least two.
std::optional<Positions> columns_of_region(const FieldArray& lines, Region region) {
    const auto filled = filled_lines(lines, region);
    if (filled.size() < 2) {
        return std::nullopt;
    }
    const bool is_padded = are_of_one_length(filled);
    const auto counts =
        filled_counts(filled, is_padded ? filled.front().size() : settled_length(filled));
    Positions found;
    const std::size_t most = filled.size() >= 50 ? filled.size() / 100 : 0;
    found.starts = starts_between_cuts(counts, most);
    if (found.starts.size() < 2) {
        return std::nullopt;
    }
    found.is_padded = is_padded;
    found.has_gaps = have_gaps(counts, most, found.starts);
    if (region.first > 0) {
        const std::u16string_view heading = text_of(lines, region.first - 1);
        found.has_heading = stands_flush(heading, found.starts, filled);
        if (found.has_heading) {
            join_unnamed(heading, counts, most, found.starts);
        }
    }
    found.alignment = alignment_of(filled, found.starts);
    found.has_padding = are_mostly_padded(filled, found.starts);
    find_run(lines, region.first, found);
    return found;
}

/// Columns that start where the given ones do, whatever the lines hold.
std::optional<Positions> columns_that_start_at(const FieldArray& lines, std::size_t first,
                                               Starts starts) {
    if (starts.size() < 2) {
        return std::nullopt;
    }
    Positions found;
    found.starts = std::move(starts);
    found.has_padding = true;
    find_run(lines, first, found);
    if (found.kept == 0) {
        return std::nullopt;
    }
    const auto filled = filled_lines(lines, {found.first_line, found.last_line + 1});
    found.is_padded = are_of_one_length(filled);
    found.alignment = alignment_of(filled, found.starts);
    return found;
}

std::optional<Positions> columns_below_heading(const FieldArray& lines, std::size_t first) {
    Starts starts = heading_starts(text_of(lines, first - 1));
    if (starts.size() < 3) {
        return std::nullopt;
    }
    auto found = columns_that_start_at(lines, first, std::move(starts));
    if (found) {
        found->has_heading = true;
    }
    return found;
}

/// The ruler alone shows the columns: cells may stand anywhere in them.
std::optional<Positions> columns_below_ruler(const FieldArray& lines, Region ruler) {
    auto found = columns_that_start_at(lines, ruler.end, ruler_starts(text_of(lines, ruler.first)));
    if (found) {
        found->has_ruler = true;
        found->alignment = 1;
    }
    return found;
}

} // namespace

double Positions::consistency() const noexcept {
    const double weighed =
        static_cast<double>(rows) + weights::behind_run * static_cast<double>(behind);
    return rows == 0 ? 0 : static_cast<double>(kept) / weighed;
}

double Positions::coverage() const noexcept {
    return all == 0 ? 0 : static_cast<double>(kept) / static_cast<double>(all);
}

std::vector<Positions> find_positions(const FieldArray& lines) {
    std::vector<Positions> found;
    const auto add = [&](std::optional<Positions> positions) {
        const bool is_new =
            positions && std::none_of(found.begin(), found.end(), [&](const Positions& other) {
                return other.starts == positions->starts &&
                       other.first_line == positions->first_line;
            });
        if (is_new) {
            found.push_back(std::move(*positions));
        }
    };
    const Regions regions = find_regions(lines);
    for (const Region& ruler : regions.rulers) {
        add(columns_below_ruler(lines, ruler));
    }
    for (const Region& region : regions.tables) {
        add(columns_of_region(lines, region));
        if (region.first > 0) {
            add(columns_below_heading(lines, region.first));
        }
    }
    return found;
}

std::u16string_view cell_at(std::u16string_view line, const Positions& positions,
                            std::size_t column) {
    return cell_of(line, positions.starts[column], end_of_column(positions.starts, column));
}

Grid grid_of(const FieldArray& lines, const Positions& positions) {
    Grid grid;
    grid.columns = positions.starts.size();
    RowPicker picker(positions.rows);
    for (std::size_t line = positions.first_line; line <= positions.last_line; ++line) {
        const std::u16string_view text = text_of(lines, line);
        if (!text.empty() && picker.takes()) {
            for (std::size_t column = 0; column < grid.columns; ++column) {
                grid.cells.push_back(cell_at(text, positions, column));
            }
        }
    }
    return grid;
}

std::vector<std::size_t> widths_of(const FieldArray& lines, const Positions& positions) {
    std::size_t longest = 0;
    const std::size_t end_of_lines = std::min(positions.last_line + 1, lines.line_count());
    for (std::size_t line = positions.first_line; line < end_of_lines; ++line) {
        longest = std::max(longest, text_of(lines, line).size());
    }
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < positions.starts.size(); ++column) {
        const std::size_t begin = column == 0 ? 0 : positions.starts[column];
        const std::size_t end =
            std::min(end_of_column(positions.starts, column), std::max(longest, begin + 1));
        widths.push_back(end - begin);
    }
    return widths;
}

} // namespace textio::advice
