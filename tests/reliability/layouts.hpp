/// \file
/// A text of each layout, with what its host knows, and an answer on one line.
#pragma once

#include "support/text.hpp"
#include "textio/textio.hpp"

#include <string>
#include <vector>

namespace test {

struct LayoutCase {
    const char* name;
    std::u16string text;
    textio::parser::options options{};
};

inline std::vector<LayoutCase> layout_cases() {
    using namespace textio::parser;
    const std::u16string columns = u"  12  north    7\n 345  south   89\n   6  west   123\n";
    options fixed_width;
    fixed_width.layout_hint = layout::fixed_width;
    options known_widths = fixed_width;
    known_widths.field_widths = {4, 7, 5};
    options known_header;
    known_header.header_lines = 2;
    known_header.detect_header_lines = false;
    known_header.consecutive_delimiters_rule = consecutive_delimiters::merge;
    return {
        {"delimited", u"n;at\na;2020-01-31\n# no line\n\"b;\"\"c\"\"\";NaN\nd;4 Jul 1976\n"},
        {"a long field",
         u"x,y\n\"" + std::u16string(40, u'1') + u"\"\"2\",5\n2,6\n3," + std::u16string(40, u'.')},
        {"space-aligned", u"a 1\nbc   22\ndef  3\n"},
        {"columns", columns},
        {"columns to be found", columns, fixed_width},
        {"columns of known widths", columns, known_widths},
        {"known header, merged runs", u"t\nt\na,,1\nb,,2\n", known_header},
        {"one field per line", u"dear all\n\nthe ship sails at dawn\nbring coats\n"},
        {"a date on each line", u"2020-01-31\n2020-02-01\n2020-02-02\n"},
        {"nothing", u""},
    };
}

/// The layout, the figures and the sample that a run found.
inline std::string answer(textio::detection::StrategySelector& selector,
                          const std::u16string& text) {
    const auto found = selector.pick_strategy(textio::Field(text), 100);
    const textio::StrategyValuation& record = found->valuation_record();
    std::string shown_answer = std::to_string(static_cast<int>(found->mode()));
    for (const std::u16string& delimiter : found->options().delimiters) {
        shown_answer += " '" + shown(delimiter) + "'";
    }
    for (const std::size_t width : found->options().field_widths) {
        shown_answer += " " + std::to_string(width);
    }
    for (const std::size_t figure :
         {found->header_lines(), record.num_variables, std::size_t{record.numeric_variables},
          std::size_t{record.datetime_variables}, std::size_t{record.temporal_variables}}) {
        shown_answer += " " + std::to_string(figure);
    }
    return shown_answer + " " + shown(*found->field_array());
}

} // namespace test
