#include "advice/column_evidence.hpp"

#include "advice/counts.hpp"
#include "advice/heading.hpp"
#include "advice/lines.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// Lines that are looked at unit by unit: some hundred, evenly taken.
constexpr std::size_t most_lines = 100;

/// Whether a cell of the line stands across a place before its end.
bool stands_across(std::u16string_view line, std::size_t start) {
    return start > 0 && !is_blank(line[start]) && !is_blank(line[start - 1]);
}

/// Whether the search for crossed starts ends here: with a crossed one, or with the line.
bool ends_search(std::u16string_view line, std::size_t start) {
    return start >= line.size() || stands_across(line, start);
}

std::size_t end_of_cells(std::size_t start, const ColumnEdges& edges) {
    return start + edges.width;
}

/// Whether most of so many columns, but no more, can have a word.
bool can_name(std::size_t words, std::size_t columns) {
    return words >= 3 && words * 3 >= columns * 2 && words <= columns + 1;
}

/// Whether a column's cell, which starts at a place of the line, has two blanks or more in front.
bool is_padded_at(std::u16string_view line, std::size_t start) {
    if (start < 2 || start >= line.size() || !is_blank(line[start - 1])) {
        return false;
    }
    return is_blank(line[start - 2]) || is_blank(line[start]);
}

} // namespace

std::vector<std::u16string_view> filled_lines(const FieldArray& lines, Region region) {
    std::vector<std::u16string_view> filled;
    const std::size_t count = region.end - region.first;
    const std::size_t step = count / (most_lines + 1) + 1;
    filled.reserve(count / step + 1);
    for (std::size_t line = region.first; line < region.end; line += step) {
        filled.push_back(text_of(lines, line));
    }
    filled.erase(std::remove(filled.begin(), filled.end(), std::u16string_view()), filled.end());
    return filled;
}

std::size_t settled_length(Lines lines) {
    std::vector<std::size_t> lengths(lines.size());
    std::transform(lines.begin(), lines.end(), lengths.begin(), filled_length);
    const auto at = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() * 3 / 10);
    std::nth_element(lengths.begin(), at, lengths.end());
    return *at;
}

std::vector<FilledCount> filled_counts(Lines lines, std::size_t positions) {
    std::vector<FilledCount> counts(positions);
    for (const auto line : lines) {
        const std::size_t end = std::min(positions, line.size());
        for (std::size_t at = 0; at < end; ++at) {
            counts[at] = static_cast<FilledCount>(counts[at] + one_if(!is_blank(line[at])));
        }
    }
    return counts;
}

Starts starts_between_cuts(std::span<const FilledCount> counts, std::size_t most) {
    Starts starts;
    bool is_behind_cut = true;
    for (std::size_t at = 0; at < counts.size(); ++at) {
        const bool is_cut = counts[at] <= most;
        if (is_behind_cut && !is_cut) {
            starts.push_back(at);
        }
        is_behind_cut = is_cut;
    }
    return starts;
}

bool have_gaps(std::span<const FilledCount> counts, std::size_t most, const Starts& starts) {
    const auto wide = std::count_if(starts.begin() + 1, starts.end(),
                                    [&](std::size_t start) { return counts[start - 2] <= most; });
    return static_cast<std::size_t>(wide) * 2 > starts.size() - 1;
}

bool is_crossed(std::u16string_view line, const Starts& starts) {
    const auto reached = std::find_if(starts.begin(), starts.end(), [line](std::size_t start) {
        return ends_search(line, start);
    });
    return reached != starts.end() && *reached < line.size();
}

std::size_t end_of_column(const Starts& starts, std::size_t column) {
    return column + 1 < starts.size() ? starts[column + 1] : SIZE_MAX;
}

std::u16string_view cell_of(std::u16string_view line, std::size_t begin, std::size_t end) {
    return begin >= line.size() ? std::u16string_view() : line.substr(begin, end - begin);
}

std::vector<ColumnEdges> edges_of(Lines lines, const Starts& starts) {
    std::vector<ColumnEdges> edges(starts.size());
    for (const auto line : lines) {
        for (std::size_t column = 0; column < starts.size(); ++column) {
            edges[column].add(cell_of(line, starts[column], end_of_column(starts, column)));
        }
    }
    return edges;
}

void ColumnEdges::add(std::u16string_view cell) noexcept {
    const std::size_t length = filled_length(cell);
    if (length == 0) {
        return;
    }
    ++cells;
    at_left += one_if(!is_blank(cell.front()));
    if (length > width) {
        width = length;
        at_right = 0;
    }
    at_right += one_if(length == width);
}

double ColumnEdges::flush() const noexcept {
    return share_of(std::max(at_left, at_right), cells);
}

double alignment_of(std::span<const ColumnEdges> edges) {
    double sum = 0;
    for (const ColumnEdges& column : edges) {
        sum += column.flush();
    }
    return sum / static_cast<double>(edges.size());
}

bool are_of_one_length(Lines lines) {
    const std::size_t length = lines[lines.size() / 2].size();
    const auto same =
        std::count_if(lines.begin(), lines.end(), [&](auto line) { return line.size() == length; });
    return static_cast<std::size_t>(same) * 20 >= lines.size() * 19;
}

bool stands_flush(std::u16string_view heading, const Starts& starts,
                  std::span<const ColumnEdges> edges) {
    Starts ends(starts.size());
    std::transform(starts.begin(), starts.end(), edges.begin(), ends.begin(), end_of_cells);
    const auto words = heading_words(heading, 2);
    const auto flush = std::count_if(words.begin(), words.end(), [&](const HeadingWord& word) {
        return std::binary_search(starts.begin(), starts.end(), word.begin) ||
               std::binary_search(ends.begin(), ends.end(), word.end);
    });
    return can_name(words.size(), starts.size()) &&
           static_cast<std::size_t>(flush) * 5 >= words.size() * 4;
}

bool are_mostly_padded(Lines lines, const Starts& starts) {
    const auto padded = std::count_if(starts.begin() + 1, starts.end(), [lines](std::size_t start) {
        return std::any_of(lines.begin(), lines.end(),
                           [start](auto line) { return is_padded_at(line, start); });
    });
    return static_cast<std::size_t>(padded) * 2 >= starts.size() - 1;
}

std::size_t join_unnamed(std::u16string_view heading, std::span<const FilledCount> counts,
                         std::size_t most, Starts& starts) {
    std::size_t kept = 0;
    for (std::size_t column = 0; column < starts.size(); ++column) {
        const std::size_t start = starts[column];
        const bool is_narrow = start < 2 || counts[start - 2] > most;
        const auto name = cell_of(heading, start, end_of_column(starts, column));
        if (column == 0 || !is_narrow || !is_blank_text(name)) {
            starts[kept++] = start;
        }
    }
    starts.resize(kept);
    return kept;
}

} // namespace textio::advice
