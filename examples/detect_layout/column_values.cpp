#include "column_values.hpp"

#include "table.hpp"
#include "textio/reading.hpp"
#include "unicode.hpp"

#include <algorithm>
#include <string_view>

namespace detect_layout {

namespace {

using zentor::io::text::typedetection::FieldClass;

/// The values of the sample in a column that hold a digit: others stand for nothing, or are no
/// dates.
std::vector<std::string> sampled_dates(const Advised& advised, const Table& table,
                                       std::size_t column) {
    std::vector<std::string> values;
    std::u16string buffer;
    for (const std::size_t row : table.rows) {
        const auto fields = table.sample->line(row);
        if (column >= fields.size()) {
            continue;
        }
        const auto value =
            textio::reading::cell_value(fields[column], advised.best().strategy->options(), buffer);
        if (value.find_first_of(u"0123456789") != std::u16string_view::npos) {
            values.push_back(to_utf8(value));
        }
    }
    return values;
}

PlainNumbers numbers_of(const textio::advice::Proposal& proposal) {
    const auto& options = proposal.type_options;
    return {proposal.decimal_mark != 0 ? proposal.decimal_mark : options.decimal_separator,
            proposal.thousands_separator != 0 ? proposal.thousands_separator
                                              : options.thousands_separator};
}

} // namespace

ColumnValues::ColumnValues(const Advised& advised, bool iso_dates)
    : numbers_(numbers_of(advised.best())) {
    const auto& best = advised.best();
    for (const std::u16string& text : best.type_options.treat_as_missing) {
        missing_.push_back(to_utf8(text));
    }
    const Table table = table_of(advised);
    for (std::size_t i = 0; i < best.columns.size(); ++i) {
        const FieldClass type = best.columns[i].type;
        if (type == FieldClass::number && !numbers_.are_plain()) {
            columns_.push_back({i, std::nullopt, {}});
        } else if (iso_dates && (type == FieldClass::date || type == FieldClass::datetime)) {
            const auto order = order_of(sampled_dates(advised, table, i));
            if (order) {
                columns_.push_back({i, order, {}});
            } else {
                unsure_dates_.push_back(i);
            }
        }
    }
}

bool ColumnValues::make_plain(RecordCells& record) {
    bool fits = true;
    const auto values = record.cells();
    if (!missing_.empty()) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (std::find(missing_.begin(), missing_.end(), values[i]) != missing_.end()) {
                record.replace(i, {});
            }
        }
    }
    for (Column& column : columns_) {
        if (column.index >= values.size()) {
            break;
        }
        const std::string_view value = values[column.index];
        if (!column.order) {
            const auto number = numbers_.plain(value, column.value);
            if (number.data() != value.data()) {
                record.replace(column.index, number);
            }
        } else if (!value.empty()) {
            const auto date = iso_date(value, *column.order, column.value);
            if (date.empty()) {
                fits = false;
            } else if (date != value) {
                record.replace(column.index, date);
            }
        }
    }
    return fits;
}

} // namespace detect_layout
