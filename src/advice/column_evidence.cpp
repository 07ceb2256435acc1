#include "advice/column_evidence.hpp"

#include "advice/heading.hpp"
#include "advice/lines.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// Lines that are looked at unit by unit: some hundred, evenly taken.
constexpr std::size_t most_lines = 100;

} // namespace

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

std::vector<FilledCount> filled_counts(Lines lines, std::size_t positions) {
    std::vector<FilledCount> counts(positions);
    for (const auto line : lines) {
        const std::size_t end = std::min(positions, line.size());
        for (std::size_t at = 0; at < end; ++at) {
            counts[at] = static_cast<FilledCount>(counts[at] + (is_blank(line[at]) ? 0U : 1U));
        }
    }
    return counts;
}

Starts starts_between_cuts(std::span<const FilledCount> counts, std::size_t most) {
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

bool have_gaps(std::span<const FilledCount> counts, std::size_t most, const Starts& starts) {
    std::size_t wide = 0;
    for (std::size_t column = 1; column < starts.size(); ++column) {
        wide += counts[starts[column] - 2] <= most ? 1U : 0U;
    }
    return wide * 2 > starts.size() - 1;
}

bool is_crossed(std::u16string_view line, const Starts& starts) {
    for (const std::size_t start : starts) {
        if (start >= line.size()) {
            return false;
        }
        if (start > 0 && !is_blank(line[start]) && !is_blank(line[start - 1])) {
            return true;
        }
    }
    return false;
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
        for (std::size_t column = 0; column < starts.size() && starts[column] < line.size();
             ++column) {
            const auto cell = cell_of(line, starts[column], end_of_column(starts, column));
            edges[column].add(cell);
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
    at_left += is_blank(cell.front()) ? 0U : 1U;
    if (length > width) {
        width = length;
        at_right = 0;
    }
    at_right += length == width ? 1U : 0U;
}

double alignment_of(std::span<const ColumnEdges> edges) {
    double sum = 0;
    for (const ColumnEdges& column : edges) {
        sum += column.cells == 0 ? 0
                                 : static_cast<double>(std::max(column.at_left, column.at_right)) /
                                       static_cast<double>(column.cells);
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
    Starts ends;
    ends.reserve(starts.size());
    for (std::size_t column = 0; column < starts.size(); ++column) {
        ends.push_back(starts[column] + edges[column].width);
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

std::size_t join_unnamed(std::u16string_view heading, std::span<const FilledCount> counts,
                         std::size_t most, Starts& starts) {
    std::size_t kept = 0;
    for (std::size_t column = 0; column < starts.size(); ++column) {
        const std::size_t start = starts[column];
        const bool is_narrow = start < 2 || counts[start - 2] > most;
        const std::size_t end = std::min(end_of_column(starts, column), heading.size());
        const bool is_named = start < end && filled_length(heading.substr(start, end - start)) != 0;
        if (column == 0 || !is_narrow || is_named) {
            starts[kept++] = start;
        }
    }
    starts.resize(kept);
    return kept;
}

} // namespace textio::advice
