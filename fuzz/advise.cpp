// Advice on any text, with anything known or wanted beforehand.
#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "samples.hpp"
#include "textio/textio.hpp"

namespace {

using namespace textio;
using advice::Advice;
using advice::Proposal;
using advice::Settings;
using fuzz::require;

template <class Value>
std::optional<Value> maybe(fuzz::Input& input, Value value) {
    return input.flag(false) ? std::optional<Value>(std::move(value)) : std::nullopt;
}

std::vector<std::size_t> widths(fuzz::Input& input) {
    std::vector<std::size_t> widths;
    for (std::uint8_t count = input.byte() % 16; count > 0; --count) {
        widths.push_back(input.size(5));
    }
    return widths;
}

Settings any_settings(fuzz::Input& input) {
    Settings settings;
    settings.comment_openers = input.strings(settings.comment_openers);
    settings.quotes = input.string(settings.quotes);
    settings.delimiters = input.strings(settings.delimiters);
    settings.reading_limit = input.size(settings.reading_limit);
    settings.proposal_limit = input.size(settings.proposal_limit);
    settings.layout = maybe(input, static_cast<enums::StrategyMode>(input.byte() % 4));
    settings.delimiter = maybe(input, input.string(u";"));
    settings.widths = maybe(input, widths(input));
    settings.quote = maybe(input, input.unit(u'\''));
    settings.comment_style = maybe(input, input.strings({u"#"}));
    settings.decimal_mark = maybe(input, input.unit(u','));
    settings.thousands_separator = maybe(input, input.unit(u'.'));
    settings.first_data_line = maybe(input, input.size(2));
    settings.names_line = maybe(input, input.size(1));
    settings.options = input.reading_options();
    settings.type_options = input.type_options();
    return settings;
}

bool is_view_of(std::u16string_view part, const Field& text) {
    return part.empty() || (std::greater_equal<>()(part.data(), text.data) &&
                            std::less_equal<>()(part.data() + part.size(), text.data + text.size));
}

/// Lines of the text, however they end.
std::size_t most_lines(const Field& text, const Settings& settings) {
    return settings.options.line_endings.empty() ? 1 : text.size + 1;
}

template <class Reader>
FieldArray fresh_reading(const parser::options& options, Field text, std::size_t rows,
                         std::size_t most_fields) {
    output::DetectionOutputBuilder builder = fuzz::new_builder(options.whitespace);
    builder.limit_fields = most_fields != SIZE_MAX;
    builder.field_limit = most_fields;
    const Reader reader(options);
    read_records(options, reader, rows, SIZE_MAX, text, builder);
    return std::move(*builder.field_array);
}

/// A reader made from the options of a proposal reads its sample.
void check_options(const GenericStrategy& strategy, const Field& text, std::size_t rows) {
    const parser::options& options = strategy.options();
    const auto fresh = [&] {
        switch (strategy.mode()) {
        case enums::StrategyMode::line_reader:
            return fresh_reading<parser::LineRecordReader>(options, text, rows, SIZE_MAX);
        case enums::StrategyMode::fixed_width:
            return fresh_reading<parser::FixedWidthRecordReader>(options, text, rows,
                                                                 options.field_widths.size());
        default:
            return fresh_reading<parser::DelimitedRecordReader>(options, text, rows, SIZE_MAX);
        }
    };
    require(fuzz::equal(*strategy.field_array(), fresh()), "a second reading gives the sample");
}

void check_columns(const Proposal& proposal, const Field& text) {
    require(!proposal.columns.empty(), "there is a column");
    for (const advice::Column& column : proposal.columns) {
        require(is_view_of(column.name, text), "a name is a part of the text");
        require(column.values + column.missing ==
                    proposal.columns.front().values + proposal.columns.front().missing,
                "columns have the same rows");
    }
}

void check_proposal(const Proposal& proposal, const Field& text, const Settings& settings) {
    require(proposal.strategy != nullptr && proposal.strategy->has_fields(), "there is a sample");
    fuzz::check_sample(*proposal.strategy->field_array(), text);
    check_columns(proposal, text);
    require(proposal.score > 0 && proposal.score <= 1, "a score is above 0 and at most 1");
    double product = 1;
    for (const advice::Term& term : proposal.terms) {
        require(!term.name.empty() && term.value >= 0, "a term has a name and a value");
        product *= term.value;
    }
    require(product == proposal.score, "the score is the product of its terms");
    require(proposal.regular_rows <= proposal.rows, "regular rows are rows");
    require(settings.first_data_line
                ? proposal.first_data_line == *settings.first_data_line
                : settings.names_line || proposal.first_data_line < most_lines(text, settings),
            "the data begin in the text");
    require(settings.names_line
                ? proposal.names_line == *settings.names_line
                : proposal.names_line == advice::no_line || settings.first_data_line ||
                      proposal.names_line < proposal.first_data_line,
            "the names stand above the data");
}

/// What was told is taken as it is.
void check_known(const Proposal& proposal, const Settings& settings) {
    const parser::options& options = proposal.strategy->options();
    require(!settings.quote || options.quote == *settings.quote, "a known quote is used");
    require(!settings.comment_style || options.comment_style == *settings.comment_style,
            "known comments are used");
    require(!settings.decimal_mark || proposal.decimal_mark == *settings.decimal_mark,
            "a known decimal mark is used");
    require(!settings.thousands_separator ||
                proposal.thousands_separator == *settings.thousands_separator,
            "a known thousands separator is used");
}

bool is_alike(const Proposal& left, const Proposal& right) {
    return left.score == right.score && left.first_data_line == right.first_data_line &&
           left.names_line == right.names_line && left.columns.size() == right.columns.size() &&
           fuzz::equal(*left.strategy->field_array(), *right.strategy->field_array());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::size_t rows = input.size(100);
    const Settings settings = any_settings(input);
    const fuzz::Text text = input.text();

    const Advice found = advice::advise(text.field(), rows, settings);
    require(!found.proposals.empty(), "there is a proposal");
    require(found.proposals.size() <= std::max<std::size_t>(settings.proposal_limit, 1),
            "no more proposals are given than wanted");
    require(found.confidence >= 1, "the best is at least as good as the next");
    double last = 1;
    for (const Proposal& proposal : found.proposals) {
        require(proposal.score <= last, "the best proposals stand first");
        last = proposal.score;
        check_proposal(proposal, text.field(), settings);
        check_known(proposal, settings);
        check_options(*proposal.strategy, text.field(), rows);
    }
    const Advice again = advice::advise(text.field(), rows, settings);
    require(again.confidence == found.confidence &&
                std::ranges::equal(again.proposals, found.proposals, is_alike),
            "a second run gives the same advice");
    return 0;
}
