#include "advice/columns.hpp"

#include "advice/cell_kind.hpp"
#include "advice/date_shapes.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "advice/table_rows.hpp"
#include "ascii.hpp"

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
    while (!cell.empty() && is_blank(cell.front())) {
        cell.remove_prefix(1);
    }
    if (missing.empty() && !cell.empty() && !begins_like_nothing(cell.front())) {
        return false;
    }
    const std::u16string_view text = trimmed(cell);
    return stands_for_nothing(text) ||
           std::find(missing.begin(), missing.end(), text) != missing.end();
}

/// Whether a text can be nothing but text: values of other classes have digits, or are short words
/// such as `NaN`.
bool is_surely_text(std::u16string_view text) {
    constexpr std::size_t longest_word = 4;
    return text.size() > longest_word && std::none_of(text.begin(), text.end(), ascii::is_digit);
}

/// What most values of a column are in each `step`th row. Values of one shape in a row are of one
/// class, and a class that more than half of them have is enough.
FieldClass common_class(const Grid& grid, std::size_t column, char16_t quote,
                        const TypeAnalyzer<false>& analyzer,
                        const TypeAnalyzerOptions& type_options, std::size_t step) {
    const std::size_t looked_at = (grid.rows() + step - 1) / step;
    std::array<std::size_t, class_limit> counts{};
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
        const std::size_t votes = ++counts[static_cast<std::size_t>(found)];
        if (votes * 2 > looked_at && found != FieldClass::unknown) {
            return found;
        }
    }
    counts[static_cast<std::size_t>(FieldClass::unknown)] = 0;
    const auto* const most = std::max_element(counts.begin(), counts.end());
    return *most == 0 ? FieldClass::unknown : static_cast<FieldClass>(most - counts.begin());
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

/// Whether a column surely holds no numbers: it holds dates, or its first quoted value is none.
bool holds_no_numbers(const Grid& grid, std::size_t column, char16_t quote, CellKind commonest) {
    if (commonest != CellKind::quoted) {
        return commonest == CellKind::date;
    }
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        const std::u16string_view text = bare(grid.cell(row, column), quote);
        if (!text.empty()) {
            return !looks_like_number(text);
        }
    }
    return false;
}

void classify(const Reading& reading, const FieldArray& lines,
              const TypeAnalyzerOptions& type_options, std::vector<Column>& columns) {
    const Grid ungraded = reading.grid.columns == 0 ? rows_of(reading, lines) : Grid();
    const Grid& grid = reading.grid.columns == 0 ? ungraded : reading.grid;
    const TypeAnalyzer<false> analyzer(type_options);
    std::optional<TypeAnalyzer<false>> date_analyzer; // few tables have dates
    const auto& figures = reading.figures.columns;
    for (std::size_t column = 0; column < std::min(columns.size(), grid.columns); ++column) {
        const bool has_no_numbers =
            column < figures.size() &&
            holds_no_numbers(grid, column, reading.quote, figures[column].commonest);
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
        while (rows_.next()) {
            const char16_t* const at = rows_.place() != nullptr ? rows_.place() : rows_.begin();
            if (!std::less<>()(at, first_data_)) {
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] const TableRows& row() const { return rows_; }

private:
    static std::size_t first_line(const Reading& reading, const FieldArray& lines,
                                  const char16_t* first_data) {
        const FieldArray& sample =
            reading.is_at_positions() ? lines : *reading.strategy->field_array();
        const std::size_t first = first_table_line(reading);
        const bool begins_above = first_data != nullptr && first < sample.line_count() &&
                                  !sample.line(first).empty() &&
                                  std::less<>()(first_data, sample.line(first).front().data);
        return begins_above ? 0 : first;
    }

    TableRows rows_;
    const char16_t* first_data_;
};

/// Takes in a cell. Few cells have a mark at all, and only numbers say something of it.
void add_marks(std::u16string_view cell, char16_t quote, NumberMarks& marks) {
    const auto is_mark = [](char16_t unit) { return unit == u'.' || unit == u','; };
    if (std::none_of(cell.begin(), cell.end(), is_mark)) {
        return;
    }
    const std::u16string_view text = bare(cell, quote);
    if (looks_like_number(text)) {
        marks.add(text);
    }
}

} // namespace

TableTally tally_of(const Reading& reading, const FieldArray& lines, const TableStart& start,
                    const TypeAnalyzerOptions& type_options) {
    constexpr std::size_t most_rows = 60; // whose marks are looked at
    TableTally tally;
    tally.columns.resize(reading.columns);
    DataRows data(reading, lines, start.first_data);
    std::size_t data_rows = 0;
    while (data.next()) {
        const TableRows& row = data.row();
        const bool tells_marks =
            data_rows++ < most_rows && !reading.is_line_by_line() && !tally.marks.are_settled();
        for (std::size_t column = 0; column < row.fields(); ++column) {
            const std::u16string_view cell = row.cells()[column];
            tally.columns[column].values += is_missing(cell, type_options) ? 0U : 1U;
            if (tells_marks) {
                add_marks(cell, reading.quote, tally.marks);
            }
        }
    }
    for (Column& column : tally.columns) {
        column.missing = data_rows - column.values;
    }
    return tally;
}

void describe_columns(const Reading& reading, const FieldArray& lines, const TableStart& start,
                      const TypeAnalyzerOptions& type_options, std::vector<Column>& columns) {
    for (std::size_t column = 0; column < std::min(columns.size(), start.names.size()); ++column) {
        columns[column].name = bare(start.names[column], reading.quote);
    }
    classify(reading, lines, type_options, columns);
}

} // namespace textio::advice
