#include "advice/table_start.hpp"

#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/names_above.hpp"
#include "advice/names_one_short.hpp"
#include "advice/numbers_as_names.hpp"
#include "advice/table_rows.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

bool is_typed(CellKind kind) {
    return kind == CellKind::number || kind == CellKind::date;
}

/// How a row's cells go with the types of the columns.
struct TypeMatch {
    std::size_t hits = 0;   ///< numbers and dates in columns of such
    std::size_t misses = 0; ///< texts in such columns
};

TypeMatch match_types(const TableRows::Cells& row, const CellFigures& figures, CellJudge& judge) {
    TypeMatch match;
    for (std::size_t column = 0; column < figures.columns.size(); ++column) {
        if (!figures.columns[column].is_typed()) {
            continue;
        }
        CellKind kind = judge.judge(row[column]);
        if (kind == CellKind::quoted) {
            kind = judge.judge(bare(row[column]));
        }
        match.hits += is_typed(kind) ? 1U : 0U;
        match.misses += !is_typed(kind) && kind != CellKind::missing ? 1U : 0U;
    }
    return match;
}

/// Tells rows of data from those above them.
class DataRows {
public:
    DataRows(const Reading& reading, CellJudge& judge) : figures_(reading.figures), judge_(judge) {
        const std::size_t rows = reading.grid.rows();
        usual_hits_ =
            rows == 0 ? 0 : static_cast<double>(figures_.filled_typed) / static_cast<double>(rows);
    }

    /// Whether a row could be data: not fewer numbers and dates where they belong than texts, and
    /// a third of as many as usual. A row that holds nothing there could.
    [[nodiscard]] bool can_be_data(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        return match.hits >= match.misses &&
               (match.hits == 0 ? match.misses == 0
                                : 3 * static_cast<double>(match.hits) >= usual_hits_);
    }

    /// Whether a row holds something in the typed columns.
    [[nodiscard]] bool tells_something(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        return match.hits + match.misses > 0;
    }

    /// Whether a row above the table is one of its data: all that it holds is where it belongs.
    [[nodiscard]] bool is_surely_data(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        return match.hits > 0 && match.misses == 0 &&
               1.5 * static_cast<double>(match.hits) >= usual_hits_;
    }

private:
    const CellFigures& figures_;
    CellJudge& judge_;
    double usual_hits_ = 0;
};

/// Looks for rows of data above the run: two in a row, or one right above it.
class EarlierRows {
public:
    explicit EarlierRows(std::size_t run_start) : run_start_(run_start) {}

    void add(std::size_t line, bool is_wide, bool is_data) {
        if (is_data && candidate_ != SIZE_MAX) {
            first_ = candidate_;
        } else if (is_data) {
            candidate_ = line;
            above_ = last_wide_;
            first_ = line + 1 == run_start_ ? line : SIZE_MAX;
        } else {
            candidate_ = SIZE_MAX;
        }
        last_wide_ = is_wide ? line : SIZE_MAX;
    }

    /// The first of them; `SIZE_MAX` while there is none.
    [[nodiscard]] std::size_t first() const { return first_; }

    /// The row above that one, if it is about as wide as the table; it may hold the names.
    [[nodiscard]] std::size_t above() const { return above_; }

private:
    std::size_t run_start_;
    std::size_t first_ = SIZE_MAX;
    std::size_t candidate_ = SIZE_MAX; ///< a row that the next may confirm
    std::size_t above_ = SIZE_MAX;
    std::size_t last_wide_ = SIZE_MAX;
};

/// The line of the sample with which the table begins. A run starts where rows keep its width; rows
/// of data further up belong to the table as well.
std::size_t start_of_table(const Reading& reading, const FieldArray& lines, DataRows& data) {
    const std::size_t start = first_table_line(reading);
    if (start == 0 || reading.figures.typed_columns == 0) {
        return start;
    }
    TableRows rows(reading, lines, 0, start - 1);
    EarlierRows earlier(start);
    while (earlier.first() == SIZE_MAX && rows.next()) {
        const bool is_wide = rows.fields() + 1 >= reading.columns;
        earlier.add(rows.line(), is_wide, is_wide && data.is_surely_data(rows.cells()));
    }
    const bool may_have_names = reading.is_delimited() && earlier.above() != SIZE_MAX;
    return earlier.first() == SIZE_MAX ? start : may_have_names ? earlier.above() : earlier.first();
}

std::size_t cells_with_letters(const TableRows::Cells& row) {
    return static_cast<std::size_t>(std::count_if(row.begin(), row.end(), has_letter));
}

/// Reads the head of a table row by row.
class HeadSearch {
public:
    HeadSearch(const Reading& reading, const FieldArray& lines, const FieldArray& raw_lines,
               CellJudge& judge)
        : reading_(reading), raw_lines_(raw_lines), data_(reading, judge),
          rows_(reading, lines, start_of_table(reading, lines, data_), last_table_line(reading)) {}

    TableStart run() {
        if (reading_.figures.typed_columns == 0) {
            search_by_words();
        } else {
            search_by_types();
        }
        return std::move(start_);
    }

private:
    [[nodiscard]] std::size_t text_line() const {
        const std::size_t line = line_of(raw_lines_, rows_.begin());
        const std::u16string_view text = text_of(raw_lines_, line);
        const bool holds_row =
            rows_.begin() >= text.data() && rows_.begin() <= text.data() + text.size();
        // A row of empty fields between tabs is a blank line, and blank lines have no place.
        return holds_row ? line : std::max(rows_.line(), line + 1);
    }

    void keep_first_data() {
        start_.first_data_line = text_line();
        start_.first_data = rows_.place();
    }

    void keep_names() {
        start_.names_line = text_line();
        start_.names = rows_.cells();
    }

    /// The first row names the columns, or is data.
    void search_by_words() {
        if (!rows_.next()) {
            return;
        }
        keep_first_data();
        if (!could_be_names()) {
            return;
        }
        keep_names();
        if (!rows_.next()) {
            return;
        }
        keep_first_data();
        // The first row was a title if names stand below it, with a blank line between.
        if (is_behind_blank_line() && could_be_names()) {
            keep_names();
            if (rows_.next()) {
                keep_first_data();
            }
        }
    }

    [[nodiscard]] bool could_be_names() const {
        return reading_.grid.rows() != 0 && names_text_columns(rows_.cells(), reading_.grid) &&
               !begins_with_key(rows_.cells(), reading_.grid);
    }

    /// Whether the row has a blank line above it: what stands above that is a title, not names.
    [[nodiscard]] bool is_behind_blank_line() const {
        const std::size_t line = text_line();
        return line != 0 && trimmed(text_of(raw_lines_, line - 1)).empty();
    }

    /// Rows are a head as long as they do not go with the types of the columns; the one with most
    /// words has the names.
    void search_by_types() {
        constexpr std::size_t longest_head = 32;
        std::size_t most = 0;
        std::size_t first_line = SIZE_MAX;
        for (std::size_t row = 0; row < longest_head && rows_.next(); ++row) {
            first_line = std::min(first_line, text_line());
            const bool is_first = row == 0;
            const bool has_numbers = is_first && names_by_numbers(rows_.cells(), reading_.grid);
            const bool is_head = has_numbers || (is_first && !data_.tells_something(rows_.cells()));
            if ((!is_head && data_.can_be_data(rows_.cells())) ||
                begins_with_key(rows_.cells(), reading_.grid)) {
                keep_first_data();
                return;
            }
            const std::size_t words =
                has_numbers ? rows_.fields() : cells_with_letters(rows_.cells());
            if (words > most || (words == most && words != 0 && is_behind_blank_line())) {
                most = words;
                keep_names();
            }
        }
        // No row is like the others: then nothing is known of a head.
        start_ = {};
        start_.first_data_line = first_line == SIZE_MAX ? 0 : first_line;
    }

    const Reading& reading_;
    const FieldArray& raw_lines_;
    DataRows data_;
    TableRows rows_;
    TableStart start_;
};

} // namespace

TableStart find_table_start(const Reading& reading, const FieldArray& lines,
                            const FieldArray& raw_lines, std::u16string_view opener,
                            CellJudge& judge) {
    TableStart start = HeadSearch(reading, lines, raw_lines, judge).run();
    if (start.names_line == SIZE_MAX && reading.grid.columns != 0) {
        NamesAbove above = find_names_one_short(reading, raw_lines, start.first_data_line);
        if (above.line == SIZE_MAX) {
            above = find_names_above(reading, raw_lines, opener, start.first_data_line);
        }
        start.names_line = above.line;
        start.names = std::move(above.names);
    }
    return start;
}

void move_first_data(TableStart& start, std::size_t first_data_line, const FieldArray& raw_lines) {
    start.first_data_line = first_data_line;
    std::size_t line = first_data_line;
    while (line < raw_lines.line_count() && raw_lines.line(line).empty()) {
        ++line;
    }
    if (line < raw_lines.line_count()) {
        start.first_data = raw_lines.line(line).front().data;
    } else if (!raw_lines.fields.empty()) {
        start.first_data = raw_lines.fields.back().data + raw_lines.fields.back().size;
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
    if (reading.is_line_by_line()) {
        return;
    }
    TableRows rows(reading, lines, 0, SIZE_MAX);
    while (rows.next()) {
        if (rows.place() != nullptr && line_of(raw_lines, rows.place()) == names_line) {
            start.names = rows.cells();
            return;
        }
    }
    NamesAbove above = find_names_above(reading, raw_lines, opener, names_line + 1);
    if (above.line == names_line) {
        start.names = std::move(above.names);
    }
}

} // namespace textio::advice
