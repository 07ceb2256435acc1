#include "answer.hpp"

#include "textio/textio.hpp"

#include <algorithm>

namespace accuracy {

using nlohmann::json;
using textio::enums::StrategyMode;

namespace {

std::string kind_of(StrategyMode mode) {
    switch (mode) {
    case StrategyMode::delimited:
        return "delimited";
    case StrategyMode::space_aligned:
        return "space_aligned";
    case StrategyMode::fixed_width:
        return "fixed_width";
    case StrategyMode::line_reader:
        break;
    }
    return "line";
}

Answer layout_of(const textio::GenericStrategy& strategy) {
    Answer answer;
    answer.kind = kind_of(strategy.mode());
    if (answer.kind == "delimited" && !strategy.options().delimiters.empty()) {
        answer.delimiter = to_utf8(strategy.options().delimiters.front());
    }
    return answer;
}

json mark(char16_t unit) {
    return unit == 0 ? json() : json(to_utf8({&unit, 1}));
}

/// Whether `value` is the label's member `key`, or one of those that are right as well.
bool accepts(const Label& label, const std::string& key, const json& value) {
    const json& others = label.at(key + "_accept");
    return label.at(key) == value || std::find(others.begin(), others.end(), value) != others.end();
}

/// What the label says about a fact; null if it says nothing or that there is none.
json fact_of(const Label& label, const std::string& fact) {
    const bool is_told_otherwise = fact == "first_data_line" && !label.contains(fact);
    return label.value(is_told_otherwise ? "header_lines" : fact, json());
}

} // namespace

std::shared_ptr<textio::GenericStrategy> pick(const textio::Field& text) {
    const textio::parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    textio::detection::StrategySelector selector(options, type_options);
    return selector.pick_strategy(text, sample_rows);
}

Answer answer_of_pick(const textio::Field& text) {
    const auto strategy = pick(text);
    strategy->valuation(); // the layout to fall back on comes without
    Answer answer = layout_of(*strategy);
    answer.columns = strategy->num_variables();
    return answer;
}

Answer answer_of(const textio::advice::Proposal& proposal) {
    Answer answer = layout_of(*proposal.strategy);
    answer.columns = proposal.columns.size();
    const auto& comments = proposal.strategy->options().comment_style;
    answer.facts = {
        {"first_data_line", proposal.first_data_line},
        {"names_line",
         proposal.names_line == textio::advice::no_line ? json() : json(proposal.names_line)},
        {"decimal", mark(proposal.decimal_mark)},
        {"thousands", mark(proposal.thousands_separator)},
        {"comment", comments.empty() ? json() : json(to_utf8(comments.front()))},
    };
    return answer;
}

Answer answer_of_advise(const textio::Field& text) {
    const auto advice = textio::advice::advise(text, sample_rows);
    Answer answer = answer_of(advice.proposals.front());
    answer.confidence = advice.confidence;
    return answer;
}

bool has_right_layout(const Label& label, const Answer& answer) {
    const std::string kind = label.at("kind");
    if (answer.kind == "delimited") {
        if (kind == "line") {
            return answer.columns == 1;
        }
        const bool is_right =
            accepts(label, "kind", "delimited") && accepts(label, "delimiter", answer.delimiter);
        return is_right || (kind == "space_aligned" && answer.delimiter == " ");
    }
    const bool is_blank_apart = kind == "delimited" && accepts(label, "delimiter", " ");
    return accepts(label, "kind", answer.kind) ||
           (answer.kind == "space_aligned" && is_blank_apart);
}

bool has_right_columns(const Label& label, const Answer& answer) {
    const json& columns = label.at("columns");
    return columns.is_null() || label.at("kind") == "line" || columns == answer.columns;
}

std::optional<bool> has_right_fact(const Label& label, const Answer& answer,
                                   const std::string& fact) {
    const json expected = fact_of(label, fact);
    // In these two, null says that there is none; in the others, that the label's maker cannot
    // tell.
    const bool can_be_none = label.contains(fact) && (fact == "names_line" || fact == "comment");
    const bool is_known = !expected.is_null() || can_be_none;
    if (!is_known || !answer.facts.contains(fact) || label.at("kind") == "line") {
        return std::nullopt;
    }
    return expected == answer.facts.at(fact);
}

} // namespace accuracy
