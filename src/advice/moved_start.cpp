#include "advice/table_start.hpp"

#include "advice/lines.hpp"
#include "advice/names_above.hpp"
#include "advice/table_rows.hpp"

#include <utility>

namespace textio::advice {

namespace {

/// The names on a line of the text: the cells of a row that stands there, or what a line above the
/// data says; none if neither tells.
TableRows::Cells names_on_line(std::size_t names_line, const Reading& reading,
                               const FieldArray& lines, const FieldArray& raw_lines,
                               std::u16string_view opener) {
    TableRows rows(reading, lines, 0, SIZE_MAX);
    while (rows.next()) {
        if (rows.place() != nullptr && line_of(raw_lines, rows.place()) == names_line) {
            return rows.cells();
        }
    }
    NamesAbove above = find_names_above(reading, raw_lines, opener, names_line + 1);
    return above.line == names_line ? std::move(above.names) : TableRows::Cells();
}

} // namespace

void move_first_data(TableStart& start, std::size_t first_data_line, const FieldArray& raw_lines) {
    start.first_data_line = first_data_line;
    const std::size_t above = fields_above(raw_lines, first_data_line);
    if (above < raw_lines.fields.size()) {
        start.first_data = raw_lines.fields[above].data;
    } else if (!raw_lines.fields.empty()) {
        start.first_data = end_of(raw_lines);
    }
}

void move_names(TableStart& start, std::size_t names_line, const Reading& reading,
                const FieldArray& lines, const FieldArray& raw_lines, std::u16string_view opener) {
    start.names_line = names_line;
    start.names.clear();
    if (names_line >= raw_lines.line_count()) {
        return;
    }
    if (start.first_data_line <= names_line) {
        move_first_data(start, names_line + 1, raw_lines);
    }
    if (!reading.is_line_by_line()) {
        start.names = names_on_line(names_line, reading, lines, raw_lines, opener);
    }
}

} // namespace textio::advice
