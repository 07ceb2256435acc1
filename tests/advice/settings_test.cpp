// What the host knows is taken as it is, and what it wants tried is tried.
#include "advice/advising.hpp"

#include <algorithm>

namespace {

using test::advice_on;
using test::Proposal;
using test::Settings;
using textio::advice::no_line;
using textio::enums::StrategyMode;

const std::u16string semicolons = u"id;note, short\n1;a,b\n2;c,d\n3;e,f\n";
const std::u16string quoted = u"'a;b';1\n'c;d';2\n'e;f';3\n";
const std::u16string commented = u"# made by hand\na;b\n1;2\n3;4\n5;6\n7;8\n# pause\n9;10\n";
const std::u16string numbers = u"day;sum\n1;1.234\n2;2.345\n3;3.456\n";
const std::u16string headed = u"made by hand\nday;sum\n1;2\n3;4\n5;6\n";

TEST(Settings, WhatIsKnownIsNotFoundOut) {
    test::expect_advice({
        {"delimiter", semicolons, "by ','; 0>1; id;note text, short text", {.delimiter = u","}},
        {"a delimiter that does not occur", semicolons, "by '|'; >0; text", {.delimiter = u"|"}},
        {"a delimiter of two signs", u"1;;2\n3;;4\n5;;6\n", "by ';;'; >0; number, number", {.delimiter = u";;"}},
        {"layout: delimited",
         u"ab 1 2.5\ncd 3 4.5\nefg 5 6.5\n",
         "by ' '; >0; text, number, number",
         {.layout = StrategyMode::delimited}},
        {"layout: aligned", semicolons, "aligned, skip, drop; >0; text, text", {.layout = StrategyMode::space_aligned}},
        {"layout: fixed width",
         u"ab  12  3.5\ncd   7 10.5\nef 105  2.5\n",
         "widths 3 4 4; >0; text, number, number",
         {.layout = StrategyMode::fixed_width}},
        {"layout: lines", semicolons, "lines; >0; text", {.layout = StrategyMode::line_reader}},
        {"widths", u"1234567890\n1234567890\n", "widths 4 1 5; >0; number, number, number", {.widths = {{4, 1, 5}}}},
        {"widths that leave the end out", u"1234567890\n1234567890\n", "widths 4 1; >0; number, number", {.widths = {{4, 1}}}},
        {"one width", u"1234567890\n1234567890\n", "widths 3; >0; number", {.widths = {{3}}}},
        {"no widths", u"1234567890\n1234567890\n", "widths 10; >0; number", {.widths = {{}}}},
        {"widths that cut delimiters alone", u",,\n,,\n,,\n", "widths 1 1; >0; delimiter, delimiter", {.widths = {{1, 1}}}},
        {"huge widths",
         u"12345\n12345\n",
         "widths far 2 far 7; >0; number, nothing -2, nothing -2, nothing -2",
         {.widths = {{SIZE_MAX, 2, SIZE_MAX, 7}}}},
        {"widths of nothing", u"12345\n12345\n", "widths 0 0 2; >0; nothing -2, nothing -2, number", {.widths = {{0, 0, 2}}}},
        {"quote", quoted, "by ';'; >0; text, text, number", {.quote = u'"'}},
        {"no quote", quoted, "by ';', no quote; >0; text, text, number", {.quote = u'\0'}},
        {"no comments", commented, "by ';'; 1>2; a number, b number", {.comment_style = {{}}}},
        {"comments that do not occur", commented, "by ';', comment //; 1>2; a number, b number", {.comment_style = {{u"//"}}}},
        {"block comments",
         u"/* one\n two; three */\na;b\n1;2\n3;4\n5;6\n",
         "by ';', comment /*; 2>3; a number, b number",
         {.comment_style = {{u"/*", u"*/"}}}},
        {"data line", headed, "by ';'; 1>3; day number, sum number", {.first_data_line = 3}},
        {"data line far behind the text", headed, "by ';'; 1>far; day number, sum number", {.first_data_line = SIZE_MAX}},
        {"names line", headed, "by ';'; 2>3; 1 number, 2 number", {.names_line = 2}},
        {"no names", headed, "by ';'; >2; number, number", {.names_line = no_line}},
    });
}

TEST(Settings, KnownMarksOfNumbersAreTaken) {
    const std::pair<const char*, Settings> cases[] = {
        {".", {}},
        {",.", {.decimal_mark = u',', .thousands_separator = u'.'}},
        {"'", {.decimal_mark = u'\''}},
        {".,", {.thousands_separator = u','}},
        {"?", {.decimal_mark = u'\0'}},
    };
    for (const auto& [expected, settings] : cases) {
        const Proposal best = advice_on(numbers, settings).proposals.front();
        EXPECT_EQ(test::marks_of(best), expected);
        EXPECT_EQ(best.type_options.decimal_separator, best.decimal_mark == 0 ? u'.' : best.decimal_mark) << expected;
        EXPECT_EQ(best.type_options.thousands_separator, best.thousands_separator) << expected;
    }
    const Proposal none = advice_on(u"1,234;5\n2,345;6\n3,456;7\n", {.thousands_separator = u'\0'}).proposals.front();
    EXPECT_EQ(test::marks_of(none), "?");
}

TEST(Settings, WhatIsToBeTriedIsTried) {
    test::expect_advice({
        {"a delimiter that nothing suggests",
         u"ax12x3.5\nbx15x4.5\ncx11x5.5\n",
         "by 'x'; >0; text, number, number",
         {.delimiters = {u"x"}}},
        {"no such delimiter", semicolons, "by ';'; 0>1; id number, note, short text", {.delimiters = {u"x", u""}}},
        {"another comment",
         u"C one\nC two\n1;2\n3;4\n5;6\n",
         "by ';', comment C; >2; number, number",
         {.comment_openers = {u"C"}}},
        {"no comments at all", commented, "by ';'; 1>2; a number, b number", {.comment_openers = {}}},
        {"another quote", u"@a;b@;1\n@c;d@;2\n@e;f@;3\n", "by ';', quote @; >0; text, number", {.quotes = u"@"}},
        {"no such quote", quoted, "by ';'; >0; text, text, number", {.quotes = u""}},
        {"words for what is missing",
         u"a;b\n1;2\n3;void\n5;6\n7;8\n",
         "by ';'; 0>1; a number, b number -1",
         {.type_options = {.treat_as_missing = {u"void"}}}},
        {"other line endings", u"a;b/1;2/3;4/5;6/", "by ';'; 0>1; a number, b number", {.options = {.line_endings = {u"/"}}}},
        {"rules of reading that would raise errors",
         u";1\n\n;2\n;3;;\n4;5\n6;7\n",
         "by ';'; >4; number, number",
         {.options = {.consecutive_delimiters_rule = textio::parser::consecutive_delimiters::error,
                      .empty_line_rule = textio::parser::empty_line::error,
                      .leading_delimiters_rule = textio::parser::leading_delimiters::error,
                      .trailing_delimiters_rule = textio::parser::trailing_delimiters::error}}},
    });
}

TEST(Settings, HoldForEveryProposal) {
    const std::u16string text = u"a;b,c|d 1\ne;f,g|h 2\ni;j,k|l 3\nm;n,o|p 4\n";
    const Settings settings{.quote = u'~',
                            .comment_style = {{u"!!"}},
                            .decimal_mark = u',',
                            .thousands_separator = u' ',
                            .first_data_line = 2,
                            .names_line = 1};
    const test::Advice found = advice_on(text, settings);
    EXPECT_GE(found.proposals.size(), 3U);
    for (const Proposal& each : found.proposals) {
        const auto& options = each.strategy->options();
        EXPECT_EQ(options.quote, u'~') << test::shown(each);
        EXPECT_EQ(options.comment_style, *settings.comment_style) << test::shown(each);
        EXPECT_EQ(test::marks_of(each), ", ") << test::shown(each);
        EXPECT_EQ(test::start_of(each), "1>2") << test::shown(each);
    }
}

TEST(Settings, LimitsAreKept) {
    const std::u16string text = u"a;b,c|d 1\ne;f,g|h 2\ni;j,k|l 3\nm;n,o|p 4\n";
    for (const std::size_t limit : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(advice_on(text, {.proposal_limit = limit}).proposals.size(), std::max<std::size_t>(limit, 1));
        const auto found = advice_on(text, {.reading_limit = limit}).proposals;
        const auto delimited = std::count_if(
            found.begin(), found.end(), [](const Proposal& each) { return each.strategy->mode() == StrategyMode::delimited; });
        // The first reading is that of the lines.
        EXPECT_EQ(static_cast<std::size_t>(delimited), std::max<std::size_t>(limit, 1) - 1) << limit;
    }
}

} // namespace
