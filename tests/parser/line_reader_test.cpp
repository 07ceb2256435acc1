#include "parser/reading.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace test;
using textio::parser::LineRecordReader;
namespace empty_line = textio::parser::empty_line;

TEST(LineReader, CutsLinesAndCountsRows) {
    struct Case {
        const char* name;
        std::u16string text;
        Limits limits;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"nothing", u"", {}, " 0 0 0"},
        {"no rows wanted", u"a\n", {.rows = 0}, " 0 0 0"},
        {"no ending behind the last line", u"a\nb", {}, "[a]/[b]/ 3 2 2"},
        {"the last ending opens no line", u"a\n", {}, "[a]/ 2 1 1"},
        {"only endings", u"\n\n", {}, "// 2 2 0"},
        {"pairs are one ending", u"a\r\nb\rc\n\rd", {}, "[a]/[b]/[c]//[d]/ 9 5 4"},
        {"blanks belong to the line", u"  a  \n \t \n", {}, "[  a  ]// 10 2 1"},
        {"empty lines are no rows", u"\n\na\nb\n", {.rows = 1}, "//[a]/ 4 3 1"},
        {"lines are limited too", u"\n\na\nb\n", {.lines = 2}, "// 2 2 0"},
        {"end of text begins a record", u"a\n\uFFFFb\n", {}, "[a]/ 2 1 1"},
        {"end of text inside a line", u"a\uFFFFb\nc", {}, "[a\\uFFFFb]/[c]/ 5 2 2"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(reading<LineRecordReader>(c.text, comma_options(), c.limits), c.expected) << c.name << ": " << shown(c.text);
    }
}

TEST(LineReader, EmptyLinesGoByTheirRule) {
    auto options = comma_options();
    options.empty_line_rule = empty_line::skip;
    EXPECT_EQ(reading<LineRecordReader>(u"a\n\n \nb\n", options), "[a]/[b]/ 7 4 2");
    options.empty_line_rule = empty_line::error;
    EXPECT_EQ(reading<LineRecordReader>(u"a\n\nb\n", options), "[a]/ empty line record 1 field 0");
    options.empty_line_rule = 9;
    EXPECT_EQ(reading<LineRecordReader>(u"a\n\nb\n", options), "[a]/[b]/ 5 3 2");
}

TEST(LineReader, OddLineEndings) {
    auto options = comma_options();
    options.whitespace.clear();
    EXPECT_EQ(reading<LineRecordReader>(u" \na", options), "[ ]/[a]/ 3 2 2") << "nothing is blank";
    options.line_endings = {};
    EXPECT_EQ(reading<LineRecordReader>(u"a\nb", options), "[a\\nb]/ 3 1 1");
    options.line_endings = {u"", u"<br>", u"<br>"};
    EXPECT_EQ(reading<LineRecordReader>(u"a<b<br>c", options), "[a<b]/[c]/ 8 2 2");
    options.line_endings = {u"\uFFFF", u"\n"};
    EXPECT_EQ(reading<LineRecordReader>(u"a\uFFFFb\nc", options), "[a]/ 1 1 1")
        << "a line ending that is the end of the text ends it";
}

} // namespace
