#include "advice/given.hpp"

#include <algorithm>

namespace textio::advice {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

constexpr char16_t usual_quote = u'"';

} // namespace

parser::options options_of(const Settings& settings) {
    parser::options options = settings.options;
    options.delimiters.clear();
    options.field_widths.clear();
    options.excluded_delimiter.clear();
    options.header_lines = SIZE_MAX;
    options.detect_header_lines = true;
    options.layout_hint = parser::layout::open;
    options.comment_style = settings.comment_style.value_or(std::vector<std::u16string>());
    options.quote = settings.quote.value_or(usual_quote);
    options.empty_line_rule = parser::empty_line::keep;
    options.leading_delimiters_rule = parser::leading_delimiters::keep;
    options.trailing_delimiters_rule = parser::trailing_delimiters::keep;
    options.consecutive_delimiters_rule = parser::consecutive_delimiters::separate;
    options.partial_field_rule = parser::partial_field::keep;
    return options;
}

Positions positions_of_widths(const std::vector<std::size_t>& widths, const FieldArray& lines) {
    Positions positions;
    std::size_t start = 0;
    for (const std::size_t width : widths) {
        positions.starts.push_back(start);
        start = start < SIZE_MAX - width ? start + width : SIZE_MAX;
    }
    positions.last_line = std::max<std::size_t>(lines.line_count(), 1) - 1;
    positions.kept = lines.fields.size();
    positions.rows = positions.kept;
    positions.all = positions.kept;
    positions.alignment = 1;
    positions.has_ruler = true;
    positions.has_padding = true;
    return positions;
}

TypeAnalyzerOptions type_options_of(const Settings& settings) {
    TypeAnalyzerOptions options = settings.type_options;
    options.decimal_separator = settings.decimal_mark.value_or(options.decimal_separator);
    options.thousands_separator =
        settings.thousands_separator.value_or(options.thousands_separator);
    return options;
}

} // namespace textio::advice
