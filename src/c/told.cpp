#include "c/layout.hpp"
#include "c/utf8_out.hpp"
#include "textio/names.hpp"

#include <algorithm>
#include <functional>
#include <utility>

namespace textio::c {

using advice::Proposal;
using enums::StrategyMode;

namespace {

OptionalText unit_if_any(char16_t unit) {
    return unit == 0 ? std::nullopt : OptionalText(utf8_of({&unit, 1}));
}

OptionalText text_at(const std::vector<std::u16string>& texts, std::size_t index) {
    return index < texts.size() ? OptionalText(utf8_of(texts[index])) : std::nullopt;
}

std::vector<ToldColumn> columns_of(const Proposal& proposal) {
    std::vector<ToldColumn> columns;
    columns.reserve(proposal.columns.size());
    const char16_t quote = proposal.strategy->options().quote;
    for (const advice::Column& column : proposal.columns) {
        columns.push_back({utf8_of(column_name(column, quote)), name_of(column.type), column.values,
                           column.missing});
    }
    return columns;
}

/// Where line `line` of `text` begins, or its end.
const char16_t* start_of_line(const Field& text, std::size_t line) {
    const std::u16string_view units = text.view();
    std::size_t at = 0;
    while (line > 0 && at < units.size()) {
        const std::size_t end = std::min(units.find_first_of(u"\r\n", at), units.size());
        at = std::min(end + (units.substr(end).starts_with(u"\r\n") ? 2 : 1), units.size());
        --line;
    }
    return text.data + at;
}

} // namespace

ToldProposal told(Proposal&& proposal) {
    const parser::options& options = proposal.strategy->options();
    const StrategyMode kind = proposal.strategy->mode();
    const auto& comments = options.comment_style;
    ToldProposal result;
    result.kind = name_of(kind);
    if (kind == StrategyMode::delimited) {
        result.delimiter = text_at(options.delimiters, 0);
    } else if (kind == StrategyMode::fixed_width) {
        result.widths = options.field_widths;
    }
    result.quote = unit_if_any(options.quote);
    result.comment = text_at(comments, 0);
    result.comment_end = comments.size() == 2 ? text_at(comments, 1) : std::nullopt;
    result.decimal = unit_if_any(proposal.decimal_mark);
    result.thousands = unit_if_any(proposal.thousands_separator);
    result.columns = columns_of(proposal);
    for (const advice::Term& term : proposal.terms) {
        result.terms.push_back({std::string(term.name), term.value});
    }
    result.why = reason_for(proposal);
    for (advice::Column& column : proposal.columns) {
        column.name = {};
    }
    result.reading = std::move(proposal);
    return result;
}

std::size_t count_data_rows(const Proposal& proposal, const Field& text) {
    const char16_t* const data = start_of_line(text, proposal.first_data_line);
    const FieldArray& sample = *proposal.strategy->field_array();
    std::size_t rows = 0;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        const auto fields = sample.line(line);
        const bool is_data = !fields.empty() && std::greater_equal<>()(fields.front().data, data);
        rows += is_data ? 1 : 0;
    }
    return rows;
}

} // namespace textio::c
