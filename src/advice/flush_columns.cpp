#include "advice/flush_columns.hpp"

#include "advice/lines.hpp"

#include <algorithm>
#include <span>
#include <vector>

namespace textio::advice {

namespace {

/// Where the cells of some rows start or end, from the start of their lines.
struct Edges {
    std::vector<std::size_t> begins; ///< row after row
    std::vector<std::size_t> ends;
};

Edges edges_of(const FieldArray& lines, const FieldArray& sample, const RegularRun& run) {
    Edges edges;
    RowPicker picker(run.kept, run.width);
    const std::size_t end = std::min(run.last_line + 1, lines.line_count());
    for (std::size_t line = run.first_line; line < end; ++line) {
        const auto fields = sample.line(line);
        const auto text = text_of(lines, line);
        const bool is_same_line = fields.size() == run.width && !text.empty() &&
                                  fields.front().data >= text.data() &&
                                  fields.back().data <= text.data() + text.size();
        if (is_same_line && picker.takes()) {
            for (const Field& field : fields) {
                edges.begins.push_back(static_cast<std::size_t>(field.data - text.data()));
                edges.ends.push_back(edges.begins.back() + field.size);
            }
        }
    }
    return edges;
}

/// How many values of one column are the one that more than half of them are; a little less than
/// the commonest where there is no such.
std::size_t majority(std::span<const std::size_t> values, std::size_t column, std::size_t columns) {
    std::size_t candidate = 0;
    std::size_t votes = 0;
    for (std::size_t at = column; at < values.size(); at += columns) {
        candidate = votes == 0 ? values[at] : candidate;
        votes = values[at] == candidate ? votes + 1 : votes - 1;
    }
    std::size_t count = 0;
    for (std::size_t at = column; at < values.size(); at += columns) {
        count += values[at] == candidate ? 1U : 0U;
    }
    return count;
}

} // namespace

double flush_share(const FieldArray& lines, const FieldArray& sample, const RegularRun& run,
                   const CellFigures& figures) {
    const Edges edges = edges_of(lines, sample, run);
    const std::size_t columns = run.width;
    const std::size_t rows = edges.begins.size() / columns;
    if (rows == 0) {
        return 1;
    }
    std::size_t flush = 0;
    for (std::size_t column = 0; column < columns; ++column) {
        flush += figures.columns[column].is_typed()
                     ? rows
                     : std::max(majority(edges.begins, column, columns),
                                majority(edges.ends, column, columns));
    }
    return static_cast<double>(flush) / static_cast<double>(rows * columns);
}

} // namespace textio::advice
