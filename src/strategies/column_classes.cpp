#include "strategies/column_classes.hpp"

#include <algorithm>
#include <cstring>
#include <span>

namespace textio {

using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;

namespace {

void count_column(FieldClass column, StrategyValuation& record) {
    switch (column) {
    case FieldClass::unknown:
        return;
    case FieldClass::number:
        ++record.numeric_variables;
        break;
    case FieldClass::datetime:
        ++record.datetime_variables;
        break;
    case FieldClass::date:
    case FieldClass::duration:
    case FieldClass::short_duration:
        ++record.temporal_variables;
        break;
    case FieldClass::delimiter_like:
        ++record.punctuation_variables;
        break;
    case FieldClass::text:
    case FieldClass::hex_number:
    case FieldClass::binary_number:
        break;
    }
    ++record.classified_variables;
}

/// The first of the columns from `from` on without a class, or their number.
std::size_t next_open(std::span<const FieldClass> classes, std::size_t from) {
    static_assert(sizeof(FieldClass) == 1, "columns are looked at as bytes, many at once");
    const auto rest = classes.subspan(from);
    const void* const open =
        rest.empty() ? nullptr
                     : std::memchr(rest.data(), static_cast<int>(FieldClass::unknown), rest.size());
    return open == nullptr
               ? classes.size()
               : static_cast<std::size_t>(static_cast<const FieldClass*>(open) - classes.data());
}

/// Gives each column without a class, from `first_open` on, that of its field on this line, if the
/// field says anything. Columns that the line does not have are not looked at.
void classify_columns(const TypeAnalyzer<false>& analyzer, std::span<const Field> line,
                      std::span<FieldClass> classes, std::size_t first_open) {
    const auto columns = classes.first(std::min(classes.size(), line.size()));
    std::size_t column = next_open(columns, std::min(first_open, columns.size()));
    while (column < columns.size()) {
        if (line[column].size != 0) {
            columns[column] = analyzer.classify(line[column]);
        }
        column = next_open(columns, column + 1);
    }
}

} // namespace

// The first data line is left out: where the header was taken for one line too short, it is still a
// heading. An undecided header wraps to 0, and then the first line takes part as well.
std::vector<FieldClass> find_column_classes(const FieldArray& sample,
                                            const TypeAnalyzer<false>& analyzer,
                                            const StrategyValuation& record) {
    std::vector<FieldClass> classes(record.num_variables, FieldClass::unknown);
    const std::size_t first_line = record.header_lines + 1;
    std::size_t first_open = 0;
    for (std::size_t line = sample.line_count(); line > first_line && first_open < classes.size();
         --line) {
        const std::span<const Field> fields = sample.line(line - 1);
        if (!fields.empty() && static_cast<std::int32_t>(fields.size()) >= record.median_fields) {
            classify_columns(analyzer, fields, classes, first_open);
            first_open = next_open(classes, first_open);
        }
    }
    return classes;
}

void count_classes(const std::vector<FieldClass>& classes, StrategyValuation& record) noexcept {
    for (const FieldClass column : classes) {
        count_column(column, record);
    }
}

} // namespace textio
