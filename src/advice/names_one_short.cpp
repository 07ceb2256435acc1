#include "advice/names_one_short.hpp"

#include "advice/cell_kind.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "advice/numbers_as_names.hpp"
#include "advice/table_rows.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

/// The filled line above `line`; `SIZE_MAX` if there is none.
std::size_t filled_line_above(const FieldArray& raw_lines, std::size_t line) {
    while (line > 0 && is_blank_text(text_of(raw_lines, line - 1))) {
        --line;
    }
    return line == 0 ? SIZE_MAX : line - 1;
}

bool last_column_is_empty(const Reading& reading) {
    const auto& columns = reading.figures.columns;
    return columns.size() < reading.columns || columns.back().filled == 0;
}

/// Words between blanks may be a sentence, but not if they are in quotes.
bool may_be_a_sentence(const Reading& reading, std::u16string_view text) {
    const bool is_quoted = reading.quote != 0 && text.starts_with(reading.quote);
    return reading.is_blank_separated() && !is_quoted && reads_like_a_sentence(text);
}

bool is_word(std::u16string_view cell) {
    return has_letter(cell) && !looks_like_number(bare(cell));
}

/// Whether `row` names all columns but one: by words, or by numbers that can be names.
bool are_names(const TableRows::Cells& row, const Reading& reading) {
    const auto words = std::count_if(row.begin(), row.end(), is_word);
    const auto unnamed = std::count(row.begin(), row.end(), std::u16string_view());
    const bool are_words = static_cast<std::size_t>(words) + 1 == row.size();
    return unnamed == 1 && (are_words || names_by_numbers(row, reading.grid));
}

/// The row of the sample that stands on a line, if it lacks one field; empty if there is none.
TableRows::Cells row_one_short(const Reading& reading, const FieldArray& raw_lines,
                               std::u16string_view line) {
    TableRows rows(reading, raw_lines, 0, first_table_line(reading));
    while (rows.next()) {
        if (reaches(line, rows.begin())) {
            return rows.fields() + 1 == reading.columns ? rows.cells() : TableRows::Cells();
        }
    }
    return {};
}

/// Whether rows of the table can be compared with a line by their fields.
bool has_fields(const Reading& reading) {
    constexpr std::size_t least_columns = 3; // a single word may be a title
    return reading.strategy != nullptr && !reading.edges.leading &&
           reading.columns >= least_columns;
}

} // namespace

NamesAbove find_names_one_short(const Reading& reading, const FieldArray& raw_lines,
                                std::size_t first_data_line) {
    const std::size_t line =
        filled_line_above(raw_lines, std::min(first_data_line, raw_lines.line_count()));
    if (!has_fields(reading) || line == SIZE_MAX) {
        return {};
    }
    const std::u16string_view text = text_of(raw_lines, line);
    if (may_be_a_sentence(reading, trimmed(text))) {
        return {};
    }
    TableRows::Cells names = row_one_short(reading, raw_lines, text);
    if (!last_column_is_empty(reading) && !names.empty()) {
        std::rotate(names.begin(), names.end() - 1, names.end());
    }
    return are_names(names, reading) ? NamesAbove{line, std::move(names)} : NamesAbove();
}

} // namespace textio::advice
