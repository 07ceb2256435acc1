#include "parser/reading.hpp"

namespace {

using namespace textio::parser;

TEST(FixedWidthReader, CutsLines) {
    const auto cut = [](std::vector<std::size_t> widths, std::uint8_t rule = partial_field::keep) {
        return options{.field_widths = std::move(widths), .partial_field_rule = rule};
    };
    const options threes = cut({3, 3});
    const options one_wide_and_no_blanks{.whitespace = u"", .field_widths = {1}};
    const options one_line{.line_endings = {}, .whitespace = u"", .field_widths = {1}};
    const options width_0_and_odd_ending{.line_endings = {u"\n\uFFFF"}, .field_widths = {0, 2}};
    const options marked_at_end{
        .line_endings = {u"\uFFFF"}, .field_widths = {2, 9}, .partial_field_rule = partial_field::drop_mark_2};
    const options blank_end_of_text{.comment_style = {u"/*", u"*/"}, .whitespace = u" \uFFFF", .field_widths = {2, 1}};
    test::expect_readings<FixedWidthRecordReader>({
        {"exact", u"abcdef\n", "[abc][def]/ 7 1 1", threes},
        {"too long", u"abcdefgh\nijk\n", "[abc][def][gh]/[ijk]/ 13 2 2", threes},
        {"blank rest", u"abcdef   \n", "[abc][def]/ 10 1 1", threes},
        {"ends in the first field", u"ab\n", "[ab]/ 3 1 1", threes},
        {"the text ends in the second field", u"abcd", "[abc][d]/ 4 1 1", threes},
        {"empty lines, and an end behind the first field", u"\n   \nabc\n", "//[abc]/ 9 3 1", threes},
        {"width 0 at a line's end, and behind it", u"\n\uFFFFab", "/[][ab]/ 4 2 1", width_0_and_odd_ending},
        {"enormous width", u"abcd\nef", "[ab][cd]/[ef]/ 7 2 2", cut({2, SIZE_MAX, 1})},
        {"no widths", u"abc\n \n", "[abc]// 6 2 1", cut({})},
        {"cut at the end of text", u"ab\uFFFF", "[ab]/ 2 1 1", threes},
        {"end of text inside a field", u"a\uFFFFb\n", "[a\\uFFFFb]/ 4 1 1", cut({3})},
        {"a pair inside, a pair behind", u"ab\r\nabc\r\n", "[ab]/[abc]/ 9 2 2", cut({3})},
        {"read on", u"ab\ncd\nef", "[ab\\n][cd\\n][ef]/ 8 1 1", cut({3, 3}, partial_field::read_on)},
        {"mark 2", u"abcd\nab\n", "[abc]// 8 2 2", cut({3, 3}, partial_field::drop_mark_2)},
        {"mark 3", u"\n", "/ 1 1 1", cut({3, 3}, partial_field::drop_mark_3)},
        {"mark 1", u"ab", "[ab]/ 2 1 1", cut({3, 3}, partial_field::drop_mark_1)},
        {"error", u"abcdef\nabcd\n", "[abc][def]/ partial record 1 field 1\\n", cut({3, 3}, partial_field::error)},
        {"ends of text end a line if text follows", u"ab\uFFFFcde\uFFFFf\uFFFF\uFFFF", "[ab]/[cd]/[f]/ 9 3 3", marked_at_end},
        {"rule outside the table", u"ab\n", "[ab]/ 3 1 1", cut({3}, 9)},
        {"without blanks any rest is text", u"a \n", "[a][ ]/ 3 1 1", one_wide_and_no_blanks},
        {"an end of text behind a comment is a blank", u"/*c*/\uFFFFab\n", "[\\uFFFFa][b]/ 9 1 1", blank_end_of_text},
        {"all is one line", u"a \uFFFF b", "[a][ \\uFFFF b]/ 5 1 1", one_line},
    });
}

TEST(FixedWidthReader, MarksAreHandedBack) {
    options options{.field_widths = {3}};
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

} // namespace
