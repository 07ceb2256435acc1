#include "textio/strategy.hpp"

#include <numeric>
#include <span>

namespace textio {

using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;

namespace {

/// Gives each of the `open_columns` the class of its field on this line, if the field says
/// anything, and closes the column.
void classify_columns(const TypeAnalyzer<false>& analyzer, std::span<const Field> line,
                      std::vector<std::size_t>& open_columns, std::vector<FieldClass>& classes) {
    std::erase_if(open_columns, [&](std::size_t column) {
        if (column >= line.size() || line[column].size == 0) {
            return false;
        }
        classes[column] = analyzer.classify(line[column]);
        return classes[column] != FieldClass::unknown;
    });
}

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

} // namespace

// The first data line is left out: where the header was taken for one line too short, it is still a
// heading. An undecided header wraps to 0, and then the first line takes part as well.
void GenericStrategy::inspect_datatypes() {
    const FieldArray& sample = *fields_;
    const std::size_t first_line = header_lines_value_ + 1;
    if (sample.line_count() <= first_line) {
        return;
    }
    std::vector<FieldClass> classes(valuation_record_.num_variables, FieldClass::unknown);
    std::vector<std::size_t> open_columns(classes.size());
    std::iota(open_columns.begin(), open_columns.end(), std::size_t{0});
    for (std::size_t line = sample.line_count(); line > first_line && !open_columns.empty();
         --line) {
        const std::span<const Field> fields = sample.line(line - 1);
        if (!fields.empty() &&
            static_cast<std::int32_t>(fields.size()) >= valuation_record_.median_fields) {
            classify_columns(type_analyzer_, fields, open_columns, classes);
        }
    }
    for (const FieldClass column : classes) {
        count_column(column, valuation_record_);
    }
}

} // namespace textio
