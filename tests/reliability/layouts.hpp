#pragma once

#include "support/text.hpp"
#include "textio/textio.hpp"

namespace test {

struct LayoutCase {
    const char* name;
    std::u16string text;
    textio::parser::options options{};
};

inline const std::vector<LayoutCase> layout_cases{
    {"delimited", u"n;at\na;2020-01-31\n# no line\n\"b;\"\"c\"\"\";NaN\nd;4 Jul 1976\n"},
    {"long fields", u"x,y\n\"" + std::u16string(40, u'1') + u"\"\"2\",5\n2,6\n3,7\n"},
    {"space-aligned", u"a 1\nbc   22\ndef  3\n"},
    {"columns", u"  12  north    7\n 345  south   89\n   6  west   123\n"},
    {"known widths", u"1234567890\n1234567\n", {.layout_hint = textio::parser::layout::fixed_width, .field_widths = {4, 1, 5}}},
    {"one field per line", u"dear all\n\nthe ship sails at dawn\nbring coats\n"},
    {"a date on each line", u"2020-01-31\n2020-02-01\n2020-02-02\n"},
};

/// The layout and the sample that a run found.
inline std::string answer(textio::detection::StrategySelector& selector, const std::u16string& text) {
    const auto found = selector.pick_strategy(textio::Field(text), 100);
    return shown(*found) + " " + shown(*found->field_array());
}

} // namespace test
