#include "advice_report.hpp"

#include "advice_words.hpp"
#include "cell_text.hpp"
#include "input_words.hpp"
#include "layout_names.hpp"
#include "table.hpp"
#include "unicode.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace detect_layout {

namespace {

using textio::advice::Column;
using textio::advice::Proposal;

/// Columns that are listed; a program can have all of them.
constexpr std::size_t most_columns = 24;

constexpr std::size_t least_name_width = 12;
constexpr std::size_t most_name_width = 28;

std::string table_phrase(const Advised& advised) {
    const std::string layout = layout_phrase(*advised.best().strategy);
    return advised.advice.is_table ? layout : "no table seen, " + layout;
}

/// Where the names and the data stand.
std::string place_phrase(const Proposal& proposal) {
    const auto data = fmt::format("data from line {}", proposal.first_data_line + 1);
    return proposal.names_line == textio::advice::no_line
               ? data + ", no names"
               : fmt::format("{}, names on line {}", data, proposal.names_line + 1);
}

/// The signs that a reader of the table has to know.
std::string sign_lines(const Proposal& proposal) {
    const auto& options = proposal.strategy->options();
    std::string text;
    const auto add = [&text](std::string_view what, std::u16string_view sign) {
        text += answer_line(what, one_line(to_utf8(sign)));
    };
    if (has_quotes(*proposal.strategy)) {
        add("quote", {&options.quote, 1});
    }
    if (options.comment_style.size() == 2) {
        add("comments", options.comment_style[0] + u" to " + options.comment_style[1]);
    } else if (!options.comment_style.empty()) {
        add("comments", options.comment_style[0]);
    }
    if (proposal.decimal_mark != 0) {
        text += answer_line("decimal mark", mark_name(proposal.decimal_mark));
    }
    if (proposal.thousands_separator != 0) {
        text += answer_line("thousands", mark_name(proposal.thousands_separator));
    }
    return text;
}

std::vector<CellText> shown_names(const Proposal& proposal) {
    const auto& columns = proposal.columns;
    const char16_t quote = proposal.strategy->options().quote;
    std::vector<CellText> names;
    for (std::size_t i = 0; i < std::min(columns.size(), most_columns); ++i) {
        const CellText name = printable(column_name(columns[i], quote), most_name_width);
        names.push_back(
            name.width > 0 ? name
                           : printable(to_utf16(fmt::format("column {}", i + 1)), most_name_width));
    }
    return names;
}

std::string column_lines(const Proposal& proposal) {
    const auto& columns = proposal.columns;
    const auto names = shown_names(proposal);
    std::size_t width = least_name_width;
    for (const CellText& name : names) {
        width = std::max(width, name.width);
    }
    std::string text = answer_line("columns", std::to_string(columns.size()));
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += fmt::format("    {}{} {}\n", names[i].utf8,
                            std::string(width - names[i].width, ' '), column_phrase(columns[i]));
    }
    if (columns.size() > names.size()) {
        text += fmt::format("    \u22EE {} more\n", columns.size() - names.size());
    }
    return text;
}

std::string rules_phrase(const textio::GenericStrategy& layout) {
    return fmt::format("{}, {} (see --rules)", layout_phrase(layout),
                       counted(layout.num_variables(), "variable"));
}

} // namespace

bool has_quotes(const textio::GenericStrategy& layout) {
    const char16_t quote = layout.options().quote;
    const auto& fields = layout.field_array()->fields;
    return quote != 0 && std::any_of(fields.begin(), fields.end(), [quote](const auto& field) {
               const auto text = field.view();
               return text.substr(std::min(text.find_first_not_of(u" \t"), text.size()))
                   .starts_with(quote);
           });
}

std::string describe(const Advised& advised) {
    const Proposal& best = advised.best();
    std::string text = one_line(advised.file) + "\n";
    text += answer_line("layout", table_phrase(advised));
    text += answer_line("confidence", confidence_phrase(advised.advice));
    if (rules_differ(advised)) {
        text += answer_line("rules differ", rules_phrase(*advised.by_rules));
    }
    if (advised.advice.is_table) {
        text += answer_line("table", place_phrase(best));
        text += column_lines(best);
        text += sign_lines(best);
    }
    text += answer_line("rows sampled", std::to_string(table_of(advised).rows.size()));
    return text + input_lines(*advised.input);
}

std::string summarise(const Advised& advised) {
    const Proposal& best = advised.best();
    std::vector<std::string> parts{table_phrase(advised)};
    if (advised.advice.is_table) {
        parts.push_back(counted(best.columns.size(), "column"));
        parts.push_back(place_phrase(best));
    }
    parts.push_back(counted(table_of(advised).rows.size(), "row"));
    parts.push_back(confidence_phrase(advised.advice));
    parts.push_back(input_summary(*advised.input));
    return fmt::format("{}: {}\n", one_line(advised.file), fmt::join(parts, ", "));
}

std::string list_proposals(const Advised& advised) {
    std::string text = "Readings, the best first:\n";
    for (const Proposal& proposal : advised.advice.proposals) {
        text += fmt::format("  {}: {}\n    score {:.2f}, lowered by {}\n",
                            one_line(layout_phrase(*proposal.strategy)), evidence_phrase(proposal),
                            proposal.score, doubts_phrase(proposal));
    }
    return text;
}

std::string rules_heading(const Advised& /*advised*/) {
    return "Layouts that the rules compare:\n";
}

} // namespace detect_layout
