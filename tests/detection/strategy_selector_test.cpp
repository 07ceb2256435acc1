#include "textio/strategy_selector.hpp"

#include "support/text.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace textio;
using Types = zentor::io::text::typedetection::TypeAnalyzerOptions;
using Widths = std::vector<std::size_t>;

struct Case {
    const char* name;
    std::u16string text;
    std::string expected;
    parser::options options{};
    std::size_t rows = 99;
};

void expect_answers(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        const Types types;
        detection::StrategySelector selector(c.options, types);
        EXPECT_EQ(test::shown(*selector.pick_strategy(Field(c.text), c.rows)), c.expected) << c.name;
    }
}

const std::u16string padded = u"name   age\nAnn     41\nBob B.   7\nCleo    12\n";

TEST(PickStrategy, EachLayout) {
    expect_answers({
        {"comma", u"Sales\n\nitem,amount\nnut,1\nbolt,2\nnail,3\nrivet,4\n", "by ',', header 2, 2 variables"},
        {"tab", u"a\tb\n1\tx\n2\ty\n", "by '\\t', header 0, 2 variables"},
        {"bar", u"a|b|c\n1|2|3\n4|5|6\n7|8|9\n", "by '|', header 0, 3 variables"},
        {"aligned", u"1  2   3\n10 20 30\n 4   5 6\n", "aligned, header 0, 3 variables"},
        {"columns", padded, "widths 6 4, header 0, 2 variables"},
        {"colons lose against dates", u"a:1,2020-01-02\nb:2,2020-01-03\nc:3,2020-01-04\n", "by ',', header 0, 2 variables"},
        {"equal shares of columns with a class", u",x,,;NA;\n,x,,;NA;\n", "by ';', header 0, 3 variables"},
        {"comments", u"# a,b,c,d\n1;2\n# x\n3;4\n5;6\n", "by ';', header 1, 2 variables"},
    });
}

TEST(PickStrategy, EachWayOfEnding) {
    expect_answers({
        {"no text", u"", "lines, header 0, 1 variables"},
        {"only empty lines", u"\n \n\n", "lines, header 0, 1 variables"},
        {"no lines wanted", u"a,b\nc,d\n", "lines, header 0, 1 variables", {}, 0},
        {"no candidates", u"alpha\nbeta\ngamma\n", "lines, header 0, 1 variables"},
        {"one candidate", u"1;2\n3;4\n", "by ';', header 0, 2 variables"},
        {"a lone line, common", u"a;b\n", "by ';', header 0, 2 variables"},
        {"a lone line, uncommon", u"a:b\n", "lines, header 0, 1 variables"},
        {"dates of their own", u"2020-01-02\n2020-01-03\n2020-01-04\n", "by ',', header 0, not valued"},
        {"durations of their own", u"1:02:03\n1:02:04\n1:02:05\n", "by ',', header 0, not valued"},
        {"two that can't be told apart", u"a:b|c\nd:e|f\ng:h|i\n", "by ',', header 0, not valued"},
    });
}

TEST(PickStrategy, KnowsWhatTheHostKnows) {
    const std::u16string both = u"1,2;3\n4,5;6\n7,8;9\n";
    const parser::options two_expected{.expected_variables = 2, .skip_variable_count_rule = false};
    const parser::options two_header_lines{.header_lines = 2, .detect_header_lines = false};
    expect_answers({
        {"excluded", both, "by ';', header 0, 2 variables", {.excluded_delimiter = u",x"}},
        {"the quote", both, "by ';', header 0, 2 variables", {.quote = u','}},
        {"expected variables", u"1,2;3,4\n5,6;7,8\n9,1;2,3\n", "by ';', header 0, 2 variables", two_expected},
        {"given header", u"T\n1,2\n3,4\n", "by ',', header 2, 2 variables", two_header_lines},
        {"no fixed width", padded, "aligned, header 0, 3 variables", {.layout_hint = parser::layout::no_fixed_width}},
    });
}

TEST(PickStrategy, KnowsTheMarksOfNumbers) {
    struct MarksCase {
        const char* name;
        char16_t decimal_mark;
        char16_t thousands_separator;
        std::u16string text;
        std::string expected;
        std::size_t numeric_variables;
    };
    parser::options options; // told anew by each case
    Types types;
    for (const MarksCase& c : std::vector<MarksCase>{
             {"a comma", u',', 0, u"low;high\n0,12;0,15\n0,13;0,17\n", "by ';', header 0, 2 variables", 2},
             {"also points", u',', u'.', u"x;sum\na;1.234,50\nb;12.000,25\n", "by ';', header 0, 2 variables", 1},
             {"a mark outside ASCII", u'\u066B', 0, u"a,b\n1\u066B5,2\u066B5\n", "by ',', header 0, 2 variables", 2},
             {"a point again", u'.', 0, u"a,b\n1.5,2.5\n", "by ',', header 0, 2 variables", 2},
         }) {
        set_number_marks(options, types, c.decimal_mark, c.thousands_separator);
        const auto layout = detection::StrategySelector(options, types).pick_strategy(Field(c.text), 99);
        EXPECT_EQ(test::shown(*layout), c.expected) << c.name;
        EXPECT_EQ(layout->valuation().numeric_variables, c.numeric_variables) << c.name;
    }
}

TEST(PickStrategy, OnlyFixedWidth) {
    const auto fixed = [](std::size_t header_lines = SIZE_MAX, bool detect_header_lines = true, Widths widths = {}) {
        return parser::options{.layout_hint = parser::layout::fixed_width,
                               .field_widths = std::move(widths),
                               .header_lines = header_lines,
                               .detect_header_lines = detect_header_lines};
    };
    const parser::options without_header = fixed(0, false);
    expect_answers({
        {"only headers", u"ab cd\nef gh\n", "widths 1, header 2, 1 variables", fixed(2, false)},
        {"a header to be found, past the end", u"ab\ncd ef\n", "widths 1, header 9, 1 variables", fixed(9)},
        {"a header as long as the data", u"ab cd\n12 34\n56 78\n", "widths 2 3, header 0, 2 variables", fixed(1)},
        {"a header of its own length", u"long title\nab\ncd\nab\nefgh ij\nefgh kl\nefgh mn\n",
         "widths 4 3, header 4, 2 variables", fixed()},
        {"given widths", u"Title\nabcd\nefgh\nijkl\n", "widths 1 3, header 0, 2 variables", fixed(SIZE_MAX, true, {1, 3})},
        {"only one field a line", u"abc\nd\n", "widths 3, header 0, 1 variables", fixed()},
        {"columns", u"aa  bbb\nc   ddd\nee   ff\n", "widths 2 5, header 0, 2 variables", without_header},
        {"what no earlier line reached is text", u"ab\nab cd\n", "widths 5, header 0, 1 variables", without_header},
        {"blanks at the end", u"ab  \nab  \n", "widths 2 2, header 0, 2 variables", without_header},
        {"a tab is no blank", u"a b\na\tb\n", "widths 3, header 0, 1 variables", without_header},
        {"blanks in front, and an empty line", u"  a b\n\n  c d\n", "widths 3 2, header 0, 2 variables", without_header},
    });
}

TEST(StrategySelector, AnswersWithItsOptionsAndStartsAnew) {
    const parser::options options{.delimiters = {u"x"}, .header_lines = 4};
    const Types types;
    detection::StrategySelector selector(options, types);
    const std::u16string text = u"1,2\n3,4\n5,6\n";
    const auto first = selector.pick_strategy(Field(text), 2);
    const auto second = selector.pick_strategy(Field(text), 3);
    EXPECT_EQ(selector.delimiters(), options.delimiters);
    EXPECT_EQ(selector.header_lines(), 4U);
    EXPECT_EQ(test::shown(*first->field_array()), "[1][2]/[3][4]/");
    EXPECT_EQ(test::shown(*second->field_array()), "[1][2]/[3][4]/[5][6]/");
}

} // namespace
