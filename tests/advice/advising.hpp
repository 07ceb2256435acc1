/// \file
/// Advice as tests ask for it and print it.
#pragma once

#include "support/text.hpp"
#include "textio/textio.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace test {

using textio::advice::Advice;
using textio::advice::Proposal;
using textio::advice::Settings;

inline constexpr std::size_t sample_rows = 250;

inline Advice advice_on(const std::u16string& text, const Settings& settings = {}, std::size_t rows = sample_rows) {
    return textio::advice::advise(textio::Field(text), rows, settings);
}

inline std::string shown(zentor::io::text::typedetection::FieldClass type) {
    constexpr std::array names{"",         "number", "text",   "datetime",       "",         "nothing", "", "date",
                               "duration", "hex",    "binary", "short duration", "delimiter"};
    return names.at(static_cast<std::size_t>(type));
}

/// How fields are cut: kind, delimiter or widths, and what else is not as usual.
inline std::string layout_of(const Proposal& proposal) {
    const textio::parser::options& options = proposal.strategy->options();
    std::string out = shown(*proposal.strategy);
    out.resize(out.find(", header"));
    if (options.quote != u'"') {
        out += options.quote == 0 ? ", no quote" : ", quote " + shown(std::u16string(1, options.quote));
    }
    out += options.comment_style.empty() ? "" : ", comment " + shown(options.comment_style.front());
    out += options.leading_delimiters_rule == textio::parser::leading_delimiters::skip ? ", skip" : "";
    out += options.trailing_delimiters_rule == textio::parser::trailing_delimiters::drop ? ", drop" : "";
    return out;
}

/// Where names and data stand: `1>2` for names on line 1 and data from line 2 on, `>0` without names.
inline std::string start_of(const Proposal& proposal) {
    const std::size_t names = proposal.names_line;
    return (names == textio::advice::no_line ? "" : std::to_string(names)) + ">" + std::to_string(proposal.first_data_line);
}

/// Names and classes from the left, with `-` and a number where values are missing.
inline std::string columns_of(const Proposal& proposal) {
    std::string out;
    for (const textio::advice::Column& column : proposal.columns) {
        const std::string name = shown(column.name);
        out += (out.empty() ? "" : ", ") + name + (name.empty() ? "" : " ") + shown(column.type);
        out += column.missing == 0 ? "" : " -" + std::to_string(column.missing);
    }
    return out;
}

/// The marks of numbers, `?` where nothing tells; nothing for a table without.
inline std::string marks_of(const Proposal& proposal) {
    std::u16string marks;
    marks += proposal.decimal_mark == 0 ? u'?' : proposal.decimal_mark;
    if (proposal.thousands_separator != 0) {
        marks += proposal.thousands_separator;
    }
    return shown(marks);
}

/// The largest number is `far`, as it is another one on other machines.
inline std::string shown(const Proposal& proposal) {
    std::string out = layout_of(proposal) + "; " + start_of(proposal) + "; " + columns_of(proposal);
    const std::string largest = std::to_string(SIZE_MAX);
    for (std::size_t at = out.find(largest); at != std::string::npos; at = out.find(largest)) {
        out.replace(at, largest.size(), "far");
    }
    return out;
}

struct AdviceCase {
    const char* name;
    std::u16string text;
    std::string expected; ///< as `shown` tells the best proposal
    Settings settings{};
};

inline void expect_advice(const std::vector<AdviceCase>& cases) {
    for (const AdviceCase& c : cases) {
        EXPECT_EQ(shown(advice_on(c.text, c.settings).proposals.front()), c.expected) << c.name << ":\n" << shown(c.text);
    }
}

} // namespace test
