#include "advice/table_start.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/names_above.hpp"
#include "advice/names_one_short.hpp"
#include "advice/numbers_as_names.hpp"
#include "advice/table_rows.hpp"

#include <algorithm>
#include <utility>

namespace textio::advice {

namespace {

/// How a row's cells go with the types of the columns.
struct TypeMatch {
    std::size_t hits = 0;   ///< numbers and dates in columns of such
    std::size_t misses = 0; ///< texts in such columns

    void add(CellKind kind) {
        if (is_typed(kind)) {
            ++hits;
        } else if (kind != CellKind::missing) {
            ++misses;
        }
    }
};

CellKind kind_without_quotes(std::u16string_view cell, CellJudge& judge) {
    const CellKind kind = judge.judge(cell);
    return kind == CellKind::quoted ? judge.judge(bare(cell)) : kind;
}

TypeMatch match_types(const TableRows::Cells& row, const CellFigures& figures, CellJudge& judge) {
    TypeMatch match;
    for (std::size_t column = 0; column < figures.columns.size(); ++column) {
        if (figures.columns[column].is_typed()) {
            match.add(kind_without_quotes(row[column], judge));
        }
    }
    return match;
}

/// Tells rows of data from those above them.
class DataRows {
public:
    DataRows(const Reading& reading, CellJudge& judge)
        : figures_(reading.figures), judge_(judge),
          usual_hits_(share_of(figures_.filled_typed, reading.grid.rows())) {}

    /// Whether a row could be data: not fewer numbers and dates where they belong than texts, and
    /// a third of as many as usual. A row that holds nothing there could.
    [[nodiscard]] bool can_be_data(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        const bool has_enough = match.hits == 0 || reaches_usual(match, 3);
        return match.hits >= match.misses && has_enough;
    }

    /// Whether a row holds something in the typed columns.
    [[nodiscard]] bool tells_something(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        return match.hits + match.misses > 0;
    }

    /// Whether a row above the table is one of its data: all that it holds is where it belongs.
    [[nodiscard]] bool is_surely_data(const TableRows::Cells& row) {
        const TypeMatch match = match_types(row, figures_, judge_);
        return match.hits > 0 && match.misses == 0 && reaches_usual(match, 1.5);
    }

private:
    /// Whether so many times its hits are as many as rows of the table usually have.
    [[nodiscard]] bool reaches_usual(const TypeMatch& match, double times) const {
        return times * static_cast<double>(match.hits) >= usual_hits_;
    }

    const CellFigures& figures_;
    CellJudge& judge_;
    double usual_hits_;
};

/// Looks for rows of data above the run: two in a row, or one right above it.
class EarlierRows {
public:
    explicit EarlierRows(std::size_t run_start) : run_start_(run_start) {}

    void add(std::size_t line, bool is_wide, bool is_data) {
        if (is_data) {
            add_data(line);
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
    void add_data(std::size_t line) {
        if (candidate_ != SIZE_MAX) {
            first_ = candidate_;
            return;
        }
        candidate_ = line;
        above_ = last_wide_;
        first_ = line + 1 == run_start_ ? line : SIZE_MAX;
    }

    std::size_t run_start_;
    std::size_t first_ = SIZE_MAX;
    std::size_t candidate_ = SIZE_MAX; ///< a row that the next may confirm
    std::size_t above_ = SIZE_MAX;
    std::size_t last_wide_ = SIZE_MAX;
};

EarlierRows find_earlier_rows(const Reading& reading, const FieldArray& lines,
                              std::size_t run_start, DataRows& data) {
    TableRows rows(reading, lines, 0, run_start - 1);
    EarlierRows earlier(run_start);
    while (earlier.first() == SIZE_MAX && rows.next()) {
        const bool is_wide = rows.fields() + 1 >= reading.columns;
        earlier.add(rows.line(), is_wide, is_wide && data.is_surely_data(rows.cells()));
    }
    return earlier;
}

/// The line of the sample with which the table begins. A run starts where rows keep its width; rows
/// of data further up belong to the table as well.
std::size_t start_of_table(const Reading& reading, const FieldArray& lines, DataRows& data) {
    const std::size_t start = first_table_line(reading);
    if (start == 0 || reading.figures.typed_columns == 0) {
        return start;
    }
    const EarlierRows earlier = find_earlier_rows(reading, lines, start, data);
    if (earlier.first() == SIZE_MAX) {
        return start;
    }
    const bool may_have_names = reading.is_delimited() && earlier.above() != SIZE_MAX;
    return may_have_names ? earlier.above() : earlier.first();
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
        const bool holds_row = reaches(text_of(raw_lines_, line), rows_.begin());
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

    /// The first row names the columns, or is data. It is a title if names stand below it, with a
    /// blank line between.
    void search_by_words() {
        if (!keep_next_data()) {
            return;
        }
        const bool is_at_second =
            take_as_names() || (start_.names_line == SIZE_MAX && rows_.next());
        if (is_at_second && is_behind_blank_line()) {
            take_as_names();
        }
    }

    /// Goes to the next row, which is taken for the first row of data; false if there is none.
    bool keep_next_data() {
        if (!rows_.next()) {
            return false;
        }
        keep_first_data();
        return true;
    }

    /// Takes the row for the names of the columns, if it could be, and the next for the data; false
    /// if it could not, or if there is no next one: names stand above something.
    bool take_as_names() {
        const bool could_be_names = reading_.grid.rows() != 0 &&
                                    names_text_columns(rows_.cells(), reading_.grid) &&
                                    !begins_with_key(rows_.cells(), reading_.grid);
        if (!could_be_names) {
            return false;
        }
        TableStart before = start_;
        keep_names();
        const bool is_followed = keep_next_data();
        if (!is_followed) {
            start_ = std::move(before);
        }
        return is_followed;
    }

    /// Whether the row has a blank line above it: what stands above that is a title, not names.
    [[nodiscard]] bool is_behind_blank_line() const {
        const std::size_t line = text_line();
        return line != 0 && line <= raw_lines_.line_count() &&
               is_blank_text(text_of(raw_lines_, line - 1));
    }

    /// Rows are a head as long as they do not go with the types of the columns; the one with most
    /// words has the names.
    void search_by_types() {
        constexpr std::size_t longest_head = 32;
        std::size_t first_line = 0;
        for (std::size_t row = 0; row < longest_head && rows_.next(); ++row) {
            first_line = row == 0 ? text_line() : std::min(first_line, text_line());
            const bool has_numbers = row == 0 && names_by_numbers(rows_.cells(), reading_.grid);
            if (!has_numbers && is_data(row == 0)) {
                keep_first_data();
                return;
            }
            keep_if_better_names(has_numbers ? rows_.fields() : cells_with_letters(rows_.cells()));
        }
        // No row is like the others: then nothing is known of a head.
        start_ = {};
        start_.first_data_line = first_line;
    }

    /// Whether the row is one of the data. A first one that says nothing is none.
    [[nodiscard]] bool is_data(bool is_first) {
        const bool says_something = !is_first || data_.tells_something(rows_.cells());
        return (says_something && data_.can_be_data(rows_.cells())) ||
               begins_with_key(rows_.cells(), reading_.grid);
    }

    /// Of two rows with as many names, the one behind a blank line has them.
    void keep_if_better_names(std::size_t words) {
        const bool is_as_good = words != 0 && words == most_words_ && is_behind_blank_line();
        if (words > most_words_ || is_as_good) {
            most_words_ = words;
            keep_names();
        }
    }

    const Reading& reading_;
    const FieldArray& raw_lines_;
    DataRows data_;
    TableRows rows_;
    TableStart start_;
    std::size_t most_words_ = 0; ///< in the row that has the names so far
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

} // namespace textio::advice
