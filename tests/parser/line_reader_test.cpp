#include "parser/reading.hpp"

namespace {

using textio::parser::options;
namespace empty_line = textio::parser::empty_line;

TEST(LineReader, CutsLinesAndCountsRows) {
    const options skipping{.empty_line_rule = empty_line::skip};
    const options nothing_is_blank{.whitespace = u""};
    const options odd_endings{.line_endings = {u"", u"<br>", u"<br>"}};
    const options end_is_an_ending{.line_endings = {u"\uFFFF", u"\n"}};
    const std::u16string long_blanks(700, u' ');
    test::expect_readings<textio::parser::LineRecordReader>({
        {"nothing", u"", " 0 0 0"},
        {"no rows wanted", u"a\n", " 0 0 0", {}, {.rows = 0}},
        {"no ending behind the last line", u"a\nb", "[a]/[b]/ 3 2 2"},
        {"the last ending opens no line", u"a\n", "[a]/ 2 1 1"},
        {"only endings", u"\n\n", "// 2 2 0"},
        {"pairs are one ending", u"a\r\nb\rc\n\rd", "[a]/[b]/[c]//[d]/ 9 5 4"},
        {"blanks belong to the line", u"  a  \n \t \n", "[  a  ]// 10 2 1"},
        {"many blanks are blank", long_blanks, "/ 700 1 0"},
        {"many blanks and a unit", long_blanks + u"a", "[" + test::shown(long_blanks) + "a]/ 701 1 1", {}, {.x_is_blank = true}},
        {"empty lines are no rows", u"\n\na\nb\n", "//[a]/ 4 3 1", {}, {.rows = 1}},
        {"lines are limited too", u"\n\na\nb\n", "// 2 2 0", {}, {.lines = 2}},
        {"end of text begins a record", u"a\n\uFFFFb\n", "[a]/ 2 1 1"},
        {"end of text inside a line", u"a\uFFFFb\nc", "[a\\uFFFFb]/[c]/ 5 2 2"},
        {"skipped empty lines", u"a\n\n \nb\n", "[a]/[b]/ 7 4 2", skipping},
        {"empty line as an error", u"a\n\nb\n", "[a]/ empty line record 1 field 0", {.empty_line_rule = empty_line::error}},
        {"rule outside the table", u"a\n\nb\n", "[a]/[b]/ 5 3 2", {.empty_line_rule = 9}},
        {"nothing is blank", u" \na", "[ ]/[a]/ 3 2 2", nothing_is_blank},
        {"no line endings", u"a\nb", "[a\\nb]/ 3 1 1", {.line_endings = {}}},
        {"a long ending, and its first unit alone", u"a<b<br>c", "[a<b]/[c]/ 8 2 2", odd_endings},
        {"the end of the text as an ending", u"a\uFFFFb\nc", "[a]/ 1 1 1", end_is_an_ending},
    });
}

} // namespace
