#include "parser/short_way/gate.hpp"

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"

#include <algorithm>

namespace textio::parser {

namespace {

/// Whether blanks, line endings and the end of text have no unit in common.
template <class Reader>
bool are_told_apart(const Reader& reader) {
    const UnitSet& blanks = reader.blanks.set();
    const UnitSet& line_ends = reader.guarded_line_ends.first_units();
    return are_disjoint(blanks, line_ends) && !blanks.contains(end_of_text) &&
           !line_ends.contains(end_of_text);
}

/// Whether the quote has no other meaning.
bool quote_is_nothing_else(const DelimitedRecordReader& reader) {
    const char16_t quote = reader.options->quote;
    return quote != end_of_text && !reader.blanks.set().contains(quote) &&
           !reader.guarded_line_ends.first_units().contains(quote) &&
           !reader.guarded_delimiters.first_units().contains(quote);
}

} // namespace

bool has_plain_records(const DelimitedRecordReader& reader) {
    const UnitSet& blanks = reader.blanks.set();
    const UnitSet& line_ends = reader.guarded_line_ends.first_units();
    const UnitSet& delimiters = reader.guarded_delimiters.first_units();
    return reader.options->consecutive_delimiters_rule != consecutive_delimiters::error &&
           reader.guarded_delimiters.only_lone_units() && quote_is_nothing_else(reader) &&
           are_told_apart(reader) && are_disjoint(delimiters, blanks) &&
           are_disjoint(delimiters, line_ends);
}

bool has_plain_records(const FixedWidthRecordReader& reader) {
    const std::vector<std::size_t>& widths = reader.widths;
    return reader.options->partial_field_rule == partial_field::keep && !widths.empty() &&
           std::find(widths.begin(), widths.end(), 0U) == widths.end() && are_told_apart(reader);
}

bool has_plain_records(const LineRecordReader& reader) {
    return are_told_apart(reader);
}

std::u16string_view unplain_starts(const DelimitedRecordReader& reader) {
    const options& options = *reader.options;
    const bool are_plain = options.leading_delimiters_rule == leading_delimiters::keep ||
                           options.consecutive_delimiters_rule == consecutive_delimiters::merge;
    return are_plain ? std::u16string_view() : reader.guarded_delimiters.first_units().units();
}

} // namespace textio::parser
