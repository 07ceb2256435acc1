#include "advice/flush_columns.hpp"

#include "advice/counts.hpp"
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

    void add(std::span<const Field> row, std::u16string_view line) {
        for (const Field& field : row) {
            begins.push_back(static_cast<std::size_t>(field.data - line.data()));
            ends.push_back(begins.back() + field.size);
        }
    }
};

/// Whether the fields of a row stand in a line: lines in quotes are counted otherwise in a sample.
bool are_of_line(std::span<const Field> fields, std::u16string_view text) {
    return !text.empty() && fields.front().data >= text.data() && reaches(text, fields.back().data);
}

Edges edges_of(const FieldArray& lines, const FieldArray& sample, const RegularRun& run) {
    Edges edges;
    RowPicker picker(run.kept, run.width);
    const std::size_t end = std::min(run.last_line + 1, lines.line_count());
    for (std::size_t line = run.first_line; line < end; ++line) {
        const auto fields = sample.line(line);
        const auto text = text_of(lines, line);
        if (fields.size() == run.width && are_of_line(fields, text) && picker.takes()) {
            edges.add(fields, text);
        }
    }
    return edges;
}

/// How many values of one column are the one that more than half of them are; a little less than
/// the commonest where there is no such.
std::size_t majority(std::span<const std::size_t> values, std::size_t column, std::size_t columns) {
    MajorityVote<std::size_t> vote;
    for (std::size_t at = column; at < values.size(); at += columns) {
        vote.add(values[at]);
    }
    std::size_t count = 0;
    for (std::size_t at = column; at < values.size(); at += columns) {
        count += one_if(values[at] == vote.value());
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
