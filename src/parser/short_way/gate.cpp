#include "parser/short_way/gate.hpp"

#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"

#include <algorithm>

namespace textio::parser {

namespace {

constexpr std::u16string_view text_end(&end_of_text, 1);

/// Whether blanks, line endings, the end of text and the other sets have no unit in common.
template <class Reader, class... Sets>
bool are_told_apart(const Reader& reader, const Sets&... others) {
    return are_disjoint({reader.blanks().set().units(),
                         reader.guarded_line_ends.first_units().units(), text_end, others...});
}

} // namespace

bool has_plain_records(const DelimitedRecordReader& reader) {
    const GuardedDelim delimiters(reader.delimiters);
    const std::u16string_view quote(&reader.options->quote, 1);
    return reader.options->consecutive_delimiters_rule != consecutive_delimiters::error &&
           delimiters.only_lone_units() &&
           are_told_apart(reader, delimiters.first_units().units(), quote);
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
    return are_plain ? std::u16string_view() : reader.delimiter_units.units();
}

std::u16string_view unplain_starts(const FixedWidthRecordReader& /*reader*/) {
    return {};
}

std::u16string_view unplain_starts(const LineRecordReader& /*reader*/) {
    return {};
}

} // namespace textio::parser
