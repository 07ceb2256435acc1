#include "column_values.hpp"

#include "table.hpp"
#include "textio/reading.hpp"
#include "unicode.hpp"
#include "utf8_encoding.hpp"

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
    : options_(advised.best().strategy->options()), numbers_(numbers_of(advised.best())),
      missing_(advised.best().type_options.treat_as_missing) {
    const auto& columns = advised.best().columns;
    const Table table = table_of(advised);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const FieldClass type = columns[i].type;
        if (type == FieldClass::number && !numbers_.are_plain()) {
            changing_.push_back({i, std::nullopt});
        } else if (iso_dates && (type == FieldClass::date || type == FieldClass::datetime)) {
            const auto order = order_of(sampled_dates(advised, table, i));
            if (order) {
                changing_.push_back({i, order});
            } else {
                unsure_dates_.push_back(i);
            }
        }
    }
}

std::string_view ColumnValues::value(std::size_t index, const textio::Field& cell) {
    const std::u16string_view text = textio::reading::cell_value(cell, options_, unquoted_);
    if (std::find(missing_.begin(), missing_.end(), text) != missing_.end()) {
        return {};
    }
    bytes_.clear();
    char* const begin = bytes_.room(most_bytes_per_unit * text.size());
    const auto up_to = [begin](const char* end) {
        return std::string_view(begin, static_cast<std::size_t>(end - begin));
    };
    const auto column = std::lower_bound(
        changing_.begin(), changing_.end(), index,
        [](const Column& changing, std::size_t other) { return changing.index < other; });
    const bool is_changing = column != changing_.end() && column->index == index;
    if (is_changing && !column->order) {
        if (const char* const end = numbers_.write(text, begin); end != nullptr) {
            return up_to(end);
        }
    }
    const std::string_view value = up_to(encode_utf8(text, begin));
    return is_changing && column->order && !value.empty() ? iso(value, *column->order) : value;
}

std::string_view ColumnValues::iso(std::string_view date, DateOrder order) {
    const std::string_view plain = iso_date(date, order, date_);
    odd_dates_ += plain.empty() ? 1 : 0;
    return plain.empty() ? date : plain;
}

} // namespace detect_layout
