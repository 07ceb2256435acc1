#include "advice/columns.hpp"

#include "advice/cell_kind.hpp"
#include "advice/counts.hpp"
#include "advice/date_shapes.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "advice/table_rows.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>

namespace textio::advice {

using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

/// Cells of a column that are classified, evenly taken from those that were graded.
constexpr std::size_t classified_cells = 9;

constexpr std::size_t class_limit = 13;

/// Whether a cell holds no value. Most cells do, and their first unit behind blanks tells.
bool is_missing(std::u16string_view cell, const TypeAnalyzerOptions& type_options) {
    const auto& missing = type_options.treat_as_missing;
    const std::u16string_view text = from_first_unit(cell);
    if (missing.empty() && !text.empty() && !begins_like_nothing(text.front())) {
        return false;
    }
    const std::u16string_view word = trimmed(text);
    return stands_for_nothing(word) ||
           std::find(missing.begin(), missing.end(), word) != missing.end();
}

/// Whether a text can be nothing but text: values of other classes have digits, or are short words
/// such as `NaN`.
bool is_surely_text(std::u16string_view text) {
    constexpr std::size_t longest_word = 4;
    return text.size() > longest_word && !has_digit(text);
}

/// Counts what the values of a column are. What is unknown says nothing.
class ClassVotes {
public:
    /// `values` are all that may come.
    explicit ClassVotes(std::size_t values) : values_(values) {}

    void add(FieldClass found) {
        if (found != FieldClass::unknown) {
            last_ = ++counts_[static_cast<std::size_t>(found)];
        }
    }

    /// Whether the class that was added last is that of more than half of the values.
    [[nodiscard]] bool are_settled() const { return last_ * 2 > values_; }

    /// The commonest class; unknown if there is none.
    [[nodiscard]] FieldClass most() const {
        const auto* const most = std::max_element(counts_.begin(), counts_.end());
        return *most == 0 ? FieldClass::unknown : static_cast<FieldClass>(most - counts_.begin());
    }

private:
    std::size_t values_;
    std::size_t last_ = 0; ///< votes for the class that was added last
    std::array<std::size_t, class_limit> counts_{};
};

/// What most values of a column are in each `step`th row. Values of one shape in a row are of one
/// class, and a class that more than half of them have is enough.
FieldClass common_class(const Grid& grid, std::size_t column, char16_t quote,
                        const TypeAnalyzer<false>& analyzer,
                        const TypeAnalyzerOptions& type_options, std::size_t step) {
    ClassVotes votes((grid.rows() + step - 1) / step);
    std::u16string_view last;
    FieldClass found = FieldClass::unknown;
    for (std::size_t row = 0; row < grid.rows(); row += step) {
        const std::u16string_view text = bare(grid.cell(row, column), quote);
        if (is_missing(text, type_options)) {
            continue;
        }
        if (!have_same_shape(text, last)) {
            found = is_surely_text(text) ? FieldClass::text : analyzer.classify(Field(text));
            last = text;
        }
        votes.add(found);
        if (votes.are_settled()) {
            return found;
        }
    }
    return votes.most();
}

/// What most of the looked-at values of a column are; where none was looked at, all are.
FieldClass class_of(const Grid& grid, std::size_t column, char16_t quote,
                    const TypeAnalyzer<false>& analyzer, const TypeAnalyzerOptions& type_options) {
    const std::size_t step = grid.rows() / (classified_cells + 1) + 1;
    const FieldClass found = common_class(grid, column, quote, analyzer, type_options, step);
    return found != FieldClass::unknown || step == 1
               ? found
               : common_class(grid, column, quote, analyzer, type_options, 1);
}

/// Some rows of a reading that was graded without them.
Grid rows_of(const Reading& reading, const FieldArray& lines) {
    Grid grid;
    grid.columns = reading.columns;
    RowPicker picker(lines.fields.size(), grid.columns);
    TableRows rows(reading, lines, first_table_line(reading), last_table_line(reading));
    while (rows.next()) {
        if (picker.takes()) {
            grid.cells.insert(grid.cells.end(), rows.cells().begin(), rows.cells().end());
        }
    }
    return grid;
}

/// Points of dates are no thousands separators, nor are they decimal marks.
TypeAnalyzerOptions without_marks(TypeAnalyzerOptions type_options) {
    type_options.decimal_separator = u'.';
    type_options.thousands_separator = 0;
    return type_options;
}

bool holds_a_number(const Grid& grid, std::size_t column, char16_t quote) {
    std::size_t row = 0;
    while (row < grid.rows() && !looks_like_number(bare(grid.cell(row, column), quote))) {
        ++row;
    }
    return row < grid.rows();
}

/// Whether a column surely holds no numbers: it holds dates, or quoted values none of which is one.
bool holds_no_numbers(const Reading& reading, const Grid& grid, std::size_t column) {
    const auto& columns = reading.figures.columns;
    const CellKind commonest =
        column < columns.size() ? columns[column].commonest : CellKind::missing;
    return commonest == CellKind::date ||
           (commonest == CellKind::quoted && !holds_a_number(grid, column, reading.quote));
}

void classify(const Grid& grid, const Reading& reading, const TypeAnalyzerOptions& type_options,
              std::vector<Column>& columns) {
    const TypeAnalyzer<false> analyzer(type_options);
    std::optional<TypeAnalyzer<false>> date_analyzer; // few tables have dates
    for (std::size_t column = 0; column < std::min(columns.size(), grid.columns); ++column) {
        const bool has_no_numbers = holds_no_numbers(reading, grid, column);
        if (has_no_numbers && !date_analyzer) {
            date_analyzer.emplace(without_marks(type_options));
        }
        columns[column].type = class_of(grid, column, reading.quote,
                                        has_no_numbers ? *date_analyzer : analyzer, type_options);
    }
}

/// The rows of a reading's data, one after the other. They may begin above the run of rows that
/// keeps the width of the table.
class DataRows {
public:
    DataRows(const Reading& reading, const FieldArray& lines, const char16_t* first_data)
        : rows_(reading, lines, first_line(reading, lines, first_data), last_table_line(reading)),
          first_data_(first_data) {}

    bool next() {
        bool has_next = rows_.next();
        while (has_next && stands_above_data()) {
            has_next = rows_.next();
        }
        return has_next;
    }

    [[nodiscard]] const TableRows& row() const { return rows_; }

private:
    /// The line of the sample from which on the rows are walked through.
    static std::size_t first_line(const Reading& reading, const FieldArray& lines,
                                  const char16_t* first_data) {
        const FieldArray& sample =
            reading.is_at_positions() ? lines : *reading.strategy->field_array();
        const std::size_t first = first_table_line(reading);
        return first_data != nullptr && begins_behind(sample, first, first_data) ? 0 : first;
    }

    /// Whether a line of a sample has fields and begins behind a place in the text.
    static bool begins_behind(const FieldArray& sample, std::size_t line, const char16_t* place) {
        const std::size_t above = fields_above(sample, line);
        return line < sample.line_count() && above != sample.line_ends[line] &&
               std::less<>()(place, sample.fields[above].data);
    }

    [[nodiscard]] bool stands_above_data() const {
        const char16_t* const at = rows_.place() != nullptr ? rows_.place() : rows_.begin();
        return std::less<>()(at, first_data_);
    }

    TableRows rows_;
    const char16_t* first_data_;
};

/// Takes in a cell. Only numbers say something of marks, and few other cells have digits.
void add_marks(std::u16string_view cell, char16_t quote, NumberMarks& of_table,
               NumberMarks& of_column) {
    if (!has_digit(cell)) {
        return;
    }
    const std::u16string_view text = bare(cell, quote);
    if (looks_like_number(text)) {
        of_table.add(text);
        of_column.add(text);
    }
}

void add_marks_of_row(const TableRows& row, char16_t quote, NumberMarks& of_table,
                      std::vector<NumberMarks>& of_columns) {
    for (std::size_t column = 0; column < row.fields(); ++column) {
        add_marks(row.cells()[column], quote, of_table, of_columns[column]);
    }
}

void add_values(const TableRows& row, const TypeAnalyzerOptions& type_options,
                std::vector<Column>& columns) {
    for (std::size_t column = 0; column < row.fields(); ++column) {
        columns[column].values += one_if(!is_missing(row.cells()[column], type_options));
    }
}

} // namespace

TableTally tally_of(const Reading& reading, const FieldArray& lines, const TableStart& start,
                    const TypeAnalyzerOptions& type_options) {
    constexpr std::size_t most_rows = 60; // whose marks are looked at
    TableTally tally;
    tally.columns.resize(reading.columns);
    std::vector<NumberMarks> marks(reading.columns);
    DataRows data(reading, lines, start.first_data);
    std::size_t data_rows = 0;
    while (data.next()) {
        add_values(data.row(), type_options, tally.columns);
        if (data_rows++ < most_rows && !reading.is_line_by_line()) {
            add_marks_of_row(data.row(), reading.quote, tally.marks, marks);
        }
    }
    for (Column& column : tally.columns) {
        column.missing = data_rows - column.values;
    }
    for (const NumberMarks& column : marks) {
        tally.marks.add_together(column);
    }
    return tally;
}

void describe_columns(const Reading& reading, const FieldArray& lines, const TableStart& start,
                      const TypeAnalyzerOptions& type_options, std::vector<Column>& columns) {
    for (std::size_t column = 0; column < std::min(columns.size(), start.names.size()); ++column) {
        columns[column].name = bare(start.names[column], reading.quote);
    }
    if (reading.grid.columns == 0) {
        classify(rows_of(reading, lines), reading, type_options, columns);
    } else {
        classify(reading.grid, reading, type_options, columns);
    }
}

} // namespace textio::advice
