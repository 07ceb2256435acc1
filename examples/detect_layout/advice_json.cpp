#include "advice_json.hpp"

#include "advice_words.hpp"
#include "json_parts.hpp"
#include "table.hpp"
#include "textio/names.hpp"
#include "unicode.hpp"

#include <string>

namespace detect_layout {

namespace {

using textio::advice::Proposal;

Json unit_or_null(char16_t unit) {
    return unit == 0 ? Json() : Json(to_utf8({&unit, 1}));
}

/// What a reader of the table has to know of it.
void add_proposal(Json& answer, const Proposal& proposal) {
    const auto& options = proposal.strategy->options();
    const auto& comments = options.comment_style;
    const bool has_names = proposal.names_line != textio::advice::no_line;
    add_layout(answer, *proposal.strategy);
    answer["header_lines"] = proposal.strategy->header_lines();
    answer["num_variables"] = proposal.columns.size();
    answer["names_line"] = has_names ? Json(proposal.names_line) : Json();
    answer["first_data_line"] = proposal.first_data_line;
    answer["quote"] = unit_or_null(options.quote);
    answer["comment"] = comments.empty() ? Json() : Json(to_utf8(comments.front()));
    answer["comment_end"] = comments.size() != 2 ? Json() : Json(to_utf8(comments.back()));
    answer["decimal"] = unit_or_null(proposal.decimal_mark);
    answer["thousands"] = unit_or_null(proposal.thousands_separator);
}

Json column_list(const Proposal& proposal) {
    Json list = Json::array();
    const char16_t quote = proposal.strategy->options().quote;
    for (const auto& column : proposal.columns) {
        list.push_back({{"name", to_utf8(column_name(column, quote))},
                        {"class", textio::name_of(column.type)},
                        {"values", column.values},
                        {"missing", column.missing}});
    }
    return list;
}

Json proposal_list(const textio::advice::Advice& advice) {
    Json list = Json::array();
    for (const Proposal& proposal : advice.proposals) {
        Json item = Json::object();
        add_proposal(item, proposal);
        item["regular_rows"] = proposal.regular_rows;
        item["rows"] = proposal.rows;
        item["score"] = proposal.score;
        Json terms = Json::object();
        for (const auto& [name, value] : proposal.terms) {
            terms[std::string(name)] = value;
        }
        item["terms"] = std::move(terms);
        list.push_back(std::move(item));
    }
    return list;
}

} // namespace

std::string to_json(const Advised& advised, const std::optional<Explanation>& explanation) {
    const bool asked = advised.by_rules != nullptr;
    Json answer{{"file", advised.file}};
    add_proposal(answer, advised.best());
    answer["columns"] = column_list(advised.best());
    answer["is_table"] = advised.advice.is_table;
    answer["confidence"] = advised.advice.confidence;
    answer["rules_agree"] = asked ? Json(!rules_differ(advised)) : Json();
    answer["rows"] = table_of(advised).rows.size();
    add_input(answer, advised.file, *advised.input);
    answer["proposals"] = proposal_list(advised.advice);
    add_explanation(answer, explanation);
    return json_line(answer);
}

} // namespace detect_layout
