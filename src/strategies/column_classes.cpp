#include "textio/strategy.hpp"

#include <algorithm>
#include <span>

namespace textio {

using zentor::io::text::typedetection::FieldClass;
using zentor::io::text::typedetection::TypeAnalyzer;

namespace {

/// Gives each column without a class the class of its field on this line, if the field says
/// anything. Gives the number of columns that got one.
std::size_t classify_columns(const TypeAnalyzer<false>& analyzer, std::span<const Field> line,
                             std::vector<FieldClass>& classes) {
    std::size_t settled = 0;
    const std::size_t columns = std::min(line.size(), classes.size());
    for (std::size_t column = 0; column < columns; ++column) {
        if (classes[column] == FieldClass::unknown) {
            classes[column] = analyzer.classify(line[column]);
            settled += classes[column] == FieldClass::unknown ? 0U : 1U;
        }
    }
    return settled;
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
    std::vector<FieldClass> classes(valuation_record_.num_variables, FieldClass::unknown);
    const std::size_t first_line = header_lines_value_ + 1;
    std::size_t open_columns = classes.size();
    for (std::size_t line = sample.line_count(); line > first_line && open_columns > 0; --line) {
        const std::span<const Field> fields = sample.line(line - 1);
        if (!fields.empty() &&
            static_cast<std::int32_t>(fields.size()) >= valuation_record_.median_fields) {
            open_columns -= classify_columns(type_analyzer_, fields, classes);
        }
    }
    for (const FieldClass column : classes) {
        count_column(column, valuation_record_);
    }
}

} // namespace textio
