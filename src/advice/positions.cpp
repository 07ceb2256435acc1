#include "advice/positions.hpp"

#include "advice/heading.hpp"
#include "advice/lines.hpp"
#include "advice/regions.hpp"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>

namespace textio::advice {

namespace {

using Lines = std::span<const std::u16string_view>;
using Starts = std::vector<std::size_t>;

/// Lines that are looked at unit by unit: some hundred, evenly taken.
constexpr std::size_t most_lines = 100;

/// The filled lines of a region, or some of them.
std::vector<std::u16string_view> filled_lines(const FieldArray& lines, Region region) {
    std::vector<std::u16string_view> filled;
    const std::size_t count = region.end - region.first;
    const std::size_t step = count / (most_lines + 1) + 1;
    filled.reserve(count / step + 1);
    for (std::size_t line = region.first; line < region.end; line += step) {
        const std::u16string_view text = text_of(lines, line);
        if (!text.empty()) {
            filled.push_back(text);
        }
    }
    return filled;
}

/// The length, blanks at the end not counted, that all but the shortest 30 % of the lines reach.
std::size_t settled_length(Lines lines) {
    std::vector<std::size_t> lengths;
    lengths.reserve(lines.size());
    for (const auto line : lines) {
        lengths.push_back(filled_length(line));
    }
    const auto at = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() * 3 / 10);
    std::nth_element(lengths.begin(), at, lengths.end());
    return *at;
}

/// On how many lines each position is filled.
std::vector<std::size_t> filled_counts(Lines lines, std::size_t positions) {
    std::vector<std::size_t> counts(positions);
    for (const auto line : lines) {
        const std::size_t end = std::min(positions, line.size());
        for (std::size_t at = 0; at < end; ++at) {
            counts[at] += is_blank(line[at]) ? 0U : 1U;
        }
    }
    return counts;
}

/// Where a filled position follows one that at most `most` lines fill.
Starts starts_between_cuts(std::span<const std::size_t> counts, std::size_t most) {
    Starts starts;
    bool inside = false;
    for (std::size_t at = 0; at < counts.size(); ++at) {
        const bool is_cut = counts[at] <= most;
        if (!is_cut && !inside) {
            starts.push_back(at);
        }
        inside = !is_cut;
    }
    return starts;
}

bool is_crossed(std::u16string_view line, const Starts& starts) {
    return std::any_of(starts.begin(), starts.end(), [&](std::size_t start) {
        return start > 0 && start < line.size() && !is_blank(line[start]) &&
               !is_blank(line[start - 1]);
    });
}

std::size_t end_of_column(const Starts& starts, std::size_t column) {
    return column + 1 < starts.size() ? starts[column + 1] : SIZE_MAX;
}

std::u16string_view cell_of(std::u16string_view line, std::size_t begin, std::size_t end) {
    return begin >= line.size() ? std::u16string_view() : line.substr(begin, end - begin);
}

/// The share of a column's cells that touch its left edge or its right one, whichever is more.
double flush_share(Lines lines, std::size_t begin, std::size_t end) {
    std::size_t right_edge = 0;
    for (const auto line : lines) {
        right_edge = std::max(right_edge, filled_length(cell_of(line, begin, end)));
    }
    std::size_t cells = 0;
    std::size_t left = 0;
    std::size_t right = 0;
    for (const auto line : lines) {
        const auto cell = cell_of(line, begin, end);
        const std::size_t length = filled_length(cell);
        if (length != 0) {
            ++cells;
            left += is_blank(cell.front()) ? 0U : 1U;
            right += length == right_edge ? 1U : 0U;
        }
    }
    return cells == 0 ? 0 : static_cast<double>(std::max(left, right)) / static_cast<double>(cells);
}

double alignment_of(Lines lines, const Starts& starts) {
    double sum = 0;
    for (std::size_t column = 0; column < starts.size(); ++column) {
        sum += flush_share(lines, starts[column], end_of_column(starts, column));
    }
    return sum / static_cast<double>(starts.size());
}

bool are_of_one_length(Lines lines) {
    const std::size_t length = lines[lines.size() / 2].size();
    const auto same =
        std::count_if(lines.begin(), lines.end(), [&](auto line) { return line.size() == length; });
    return static_cast<std::size_t>(same) * 20 >= lines.size() * 19;
}

/// Whether most words of `heading` start or end where a column does, and most columns have one.
bool stands_flush(std::u16string_view heading, const Starts& starts, Lines lines) {
    Starts ends;
    for (std::size_t column = 0; column < starts.size(); ++column) {
        std::size_t last = 0;
        for (const auto line : lines) {
            last = std::max(
                last, filled_length(cell_of(line, starts[column], end_of_column(starts, column))));
        }
        ends.push_back(starts[column] + last);
    }
    const auto words = heading_words(heading, 2);
    const auto holds = [](const Starts& sorted, std::size_t at) {
        return std::binary_search(sorted.begin(), sorted.end(), at);
    };
    const auto flush = std::count_if(words.begin(), words.end(), [&](const HeadingWord& word) {
        return holds(starts, word.begin) || holds(ends, word.end);
    });
    return words.size() >= 3 && static_cast<std::size_t>(flush) * 5 >= words.size() * 4 &&
           words.size() * 3 >= starts.size() * 2 && words.size() <= starts.size() + 1;
}

/// Whether most columns behind the first have a line on which two blanks or more stand before or in
/// front of their cell: columns that are never padded are none.
bool are_mostly_padded(Lines lines, const Starts& starts) {
    std::size_t padded = 0;
    for (std::size_t column = 1; column < starts.size(); ++column) {
        const std::size_t start = starts[column];
        padded += std::any_of(lines.begin(), lines.end(),
                              [&](auto line) {
                                  return start >= 2 && start < line.size() &&
                                         is_blank(line[start - 1]) &&
                                         (is_blank(line[start - 2]) || is_blank(line[start]));
                              })
                      ? 1U
                      : 0U;
    }
    return padded * 2 >= starts.size() - 1;
}

/// Takes back cuts of one blank over which the heading has no word: these are blanks in a text.
void join_unnamed(std::u16string_view heading, std::span<const std::size_t> counts,
                  std::size_t most, Starts& starts) {
    for (std::size_t column = starts.size(); column-- > 1;) {
        const std::size_t start = starts[column];
        const bool is_narrow = start < 2 || counts[start - 2] > most;
        const std::size_t end = std::min(end_of_column(starts, column), heading.size());
        const bool is_named = start < end && filled_length(heading.substr(start, end - start)) != 0;
        if (is_narrow && !is_named) {
            starts.erase(starts.begin() + static_cast<std::ptrdiff_t>(column));
        }
    }
}

/// Fills in the run of lines from `first` on that keeps the columns best, as rows keep a width.
void find_run(const FieldArray& lines, std::size_t first, Positions& positions) {
    std::ptrdiff_t sum = 0;
    std::ptrdiff_t best = 0;
    std::size_t start = first;
    std::size_t kept = 0;
    std::size_t rows = 0;
    for (std::size_t line = 0; line < lines.line_count(); ++line) {
        const auto text = text_of(lines, line);
        if (text.empty()) {
            continue;
        }
        ++positions.all;
        positions.behind += line > positions.last_line && best > 0 ? 1U : 0U;
        if (line < first) {
            continue;
        }
        const bool keeps = !is_crossed(text, positions.starts);
        if (sum <= 0) {
            sum = 0;
            start = line;
            kept = 0;
            rows = 0;
        }
        sum += keeps ? 1 : -2;
        kept += keeps ? 1U : 0U;
        ++rows;
        if (sum > best) {
            best = sum;
            positions.first_line = start;
            positions.last_line = line;
            positions.kept = kept;
            positions.rows = rows;
            positions.behind = 0;
        }
    }
}

/// Columns that blanks on all lines of the region leave; at least two.
std::optional<Positions> columns_of_region(const FieldArray& lines, Region region) {
    const auto filled = filled_lines(lines, region);
    if (filled.size() < 2) {
        return std::nullopt;
    }
    const auto counts = filled_counts(filled, settled_length(filled));
    Positions found;
    const std::size_t most = filled.size() >= 50 ? filled.size() / 100 : 0;
    found.starts = starts_between_cuts(counts, most);
    if (found.starts.size() < 2) {
        return std::nullopt;
    }
    found.is_padded = are_of_one_length(filled);
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
    const double weighed = static_cast<double>(rows) + static_cast<double>(behind) / 2;
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
    for (std::size_t line = positions.first_line; line <= positions.last_line; ++line) {
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
