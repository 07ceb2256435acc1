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
    while (line > 0) {
        --line;
        if (!trimmed(text_of(raw_lines, line)).empty()) {
            return line;
        }
    }
    return SIZE_MAX;
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

/// Whether `row` names columns: all that it has are words, or numbers that can be names.
bool are_names(const TableRows::Cells& row, const Reading& reading) {
    const auto filled = static_cast<std::ptrdiff_t>(row.size() - 1);
    const bool is_full = std::count(row.begin(), row.end(), std::u16string_view()) == 1;
    return is_full && (std::count_if(row.begin(), row.end(), is_word) == filled ||
                       names_by_numbers(row, reading.grid));
}

} // namespace

NamesAbove find_names_one_short(const Reading& reading, const FieldArray& raw_lines,
                                std::size_t first_data_line) {
    constexpr std::size_t least_columns = 3; // a single word may be a title
    NamesAbove found;
    const std::size_t line =
        filled_line_above(raw_lines, std::min(first_data_line, raw_lines.line_count()));
    if (reading.strategy == nullptr || reading.edges.leading || reading.columns < least_columns ||
        line == SIZE_MAX || may_be_a_sentence(reading, trimmed(text_of(raw_lines, line)))) {
        return found;
    }
    const std::u16string_view text = text_of(raw_lines, line);
    TableRows rows(reading, raw_lines, 0, first_table_line(reading));
    while (rows.next()) {
        if (rows.begin() < text.data() || rows.begin() > text.data() + text.size()) {
            continue;
        }
        TableRows::Cells names = rows.cells();
        if (rows.fields() + 1 == reading.columns) {
            if (!last_column_is_empty(reading)) {
                std::rotate(names.begin(), names.end() - 1, names.end());
            }
            if (are_names(names, reading)) {
                found = {line, std::move(names)};
            }
        }
        break;
    }
    return found;
}

} // namespace textio::advice
