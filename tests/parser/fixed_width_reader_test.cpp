#include "parser/reading.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace test;
using namespace textio::parser;

struct Case {
    const char* name;
    std::vector<std::size_t> widths;
    std::uint8_t partial_field_rule;
    std::u16string text;
    std::string expected;
};

// The loop alone does not limit the fields of a line, so what stands behind the last width shows.
TEST(FixedWidthReader, CutsLines) {
    const std::vector<Case> cases{
        {"exact", {3, 3}, partial_field::keep, u"abcdef\n", "[abc][def]/ 7 1 1"},
        {"too long", {3, 3}, partial_field::keep, u"abcdefgh\nijk\n", "[abc][def][gh]/[ijk]/ 13 2 2"},
        {"blank rest", {3, 3}, partial_field::keep, u"abcdef   \n", "[abc][def]/ 10 1 1"},
        {"ends in the first field", {3, 3}, partial_field::keep, u"ab\n", "[ab]/ 3 1 1"},
        {"ends in the second field", {3, 3}, partial_field::keep, u"abcd\n", "[abc][d]/ 5 1 1"},
        {"the text ends", {3, 3}, partial_field::keep, u"abcd", "[abc][d]/ 4 1 1"},
        {"ends behind the first field", {3, 3}, partial_field::keep, u"abc\n", "[abc]/ 4 1 1"},
        {"empty lines", {3, 3}, partial_field::keep, u"\n   \nabc\n", "//[abc]/ 9 3 1"},
        {"width 0 at a line's end", {0, 2}, partial_field::keep, u"\nab\n", "/[][ab]/ 4 2 1"},
        {"enormous width", {2, SIZE_MAX, 1}, partial_field::keep, u"abcd\nef", "[ab][cd]/[ef]/ 7 2 2"},
        {"no widths", {}, partial_field::keep, u"abc\n \n", "[abc]// 6 2 1"},
        {"cut at the end of text", {3, 3}, partial_field::keep, u"ab\uFFFF", "[ab]/ 2 1 1"},
        {"end of text inside a field", {3}, partial_field::keep, u"a\uFFFFb\n", "[a\\uFFFFb]/ 4 1 1"},
        {"a pair inside, a pair behind", {3}, partial_field::keep, u"ab\r\nabc\r\n", "[ab]/[abc]/ 9 2 2"},
        {"read on", {3, 3}, partial_field::read_on, u"ab\ncd\nef", "[ab\\n][cd\\n][ef]/ 8 1 1"},
        {"mark 2", {3, 3}, partial_field::drop_mark_2, u"abcd\nab\n", "[abc]// 8 2 2"},
        {"mark 3", {3, 3}, partial_field::drop_mark_3, u"\n", "/ 1 1 1"},
        {"mark 1", {3, 3}, partial_field::drop_mark_1, u"ab", "[ab]/ 2 1 1"},
        {"error", {3, 3}, partial_field::error, u"abcdef\nabcd\n", "[abc][def]/ partial record 1 field 1\\n"},
        {"value outside the table", {3}, 9, u"ab\n", "[ab]/ 3 1 1"},
    };
    for (const Case& c : cases) {
        options options = comma_options();
        options.field_widths = c.widths;
        options.partial_field_rule = c.partial_field_rule;
        EXPECT_EQ(reading<FixedWidthRecordReader>(c.text, options), c.expected) << c.name << ": " << shown(c.text);
    }
}

TEST(FixedWidthReader, MarksAreHandedBack) {
    options options = comma_options();
    options.field_widths = {3};
    std::vector<int> marks;
    for (std::uint8_t rule = partial_field::keep; rule <= partial_field::read_on; ++rule) {
        options.partial_field_rule = rule;
        textio::Record record;
        std::uint8_t mark = 99;
        read_fixed_record(FixedWidthRecordReader(options), textio::Field(u"ab\n"), record, mark);
        marks.push_back(mark);
    }
    EXPECT_EQ(marks, (std::vector<int>{0, 2, 3, 1, 0}));
}

// Any blank tells the rest from text; without blanks any rest is text.
TEST(FixedWidthReader, RestWithoutBlanks) {
    options options = comma_options();
    options.field_widths = {1};
    options.whitespace.clear();
    EXPECT_EQ(reading<FixedWidthRecordReader>(u"a \n", options), "[a][ ]/ 3 1 1");
    options.line_endings.clear();
    EXPECT_EQ(reading<FixedWidthRecordReader>(u"a \uFFFF b", options), "[a][ \\uFFFF b]/ 5 1 1");
}

} // namespace
