#include "strategies/column_classes.hpp"

#include <algorithm>
#include <cstdint>
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

constexpr std::size_t group = sizeof(std::uint64_t);

/// Whether each of the `group` columns from `columns` on has a class. All are looked at together.
bool are_closed(const FieldClass* columns) {
    constexpr std::uint64_t each = 0x0101010101010101;
    constexpr std::uint64_t low_bits = each * 0x7F;
    static_assert(sizeof(FieldClass) == 1);
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, columns, group);
    bytes ^= each * static_cast<std::uint64_t>(FieldClass::unknown);
    // Each byte that is not 0 gets its highest bit set.
    return (((bytes & low_bits) + low_bits) | bytes | low_bits) == ~std::uint64_t{0};
}

/// Gives each of `columns` without a class that of its field, if the field says anything.
void classify_some(const TypeAnalyzer<false>& analyzer, const Field* fields,
                   std::span<FieldClass> columns) {
    for (FieldClass& column : columns) {
        if (column == FieldClass::unknown && fields->size != 0) {
            column = analyzer.classify(*fields);
        }
        ++fields;
    }
}

/// The same for a line with as many fields as there are columns. In most lines of a wide table most
/// columns have their class.
void classify_line(const TypeAnalyzer<false>& analyzer, const Field* fields,
                   std::span<FieldClass> columns) {
    for (; columns.size() > group; columns = columns.subspan(group), fields += group) {
        if (!are_closed(columns.data())) {
            classify_some(analyzer, fields, columns.first(group));
        }
    }
    classify_some(analyzer, fields, columns);
}

std::size_t skip_closed(std::span<const FieldClass> classes, std::size_t from) {
    while (from < classes.size() && classes[from] != FieldClass::unknown) {
        ++from;
    }
    return from;
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
            const std::size_t end = std::min(classes.size(), fields.size());
            if (first_open < end) {
                classify_line(analyzer, &fields[first_open],
                              std::span(classes).subspan(first_open, end - first_open));
                first_open = skip_closed(classes, first_open);
            }
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
