#include "parser/reading.hpp"

namespace {

using namespace test;
using namespace textio::parser;
namespace run = consecutive_delimiters;
namespace lead = leading_delimiters;
namespace trail = trailing_delimiters;

TEST(DelimitedReader, FindsFields) {
    const std::u16string long_quoted = u"\"" + std::u16string(150, u',') + u"\"\"\",z\n";
    expect_readings<DelimitedRecordReader>({
        {"no ending", u"a,b", "[a][b]/ 3 1 1"},
        {"quotes and blanks stay", u"  \"a,b\"  ,c\n", "[  \"a,b\"  ][c]/ 12 1 1"},
        {"doubled quote", u"\"a\"\"b,c\",d\n", "[\"a\"\"b,c\"][d]/ 11 1 1"},
        {"text behind the closing quote", u"\"a\"b,c\n", "[\"a\"b][c]/ 7 1 1"},
        {"quote inside opens nothing", u"a\"b,c\"d\n", "[a\"b][c\"d]/ 8 1 1"},
        {"never closed", u"\"a,b\nc", "[\"a,b\\nc]/ 6 1 1"},
        {"closing quote is the last unit", u"a,\"b\"", "[a][\"b\"]/ 5 1 1"},
        {"two lines in quotes", u"\"a\nb\",c\nd\n", "[\"a\\nb\"][c]/[d]/ 10 2 2"},
        {"quoted end of text", u"\"\uFFFF\",b\n", "[\"\\uFFFF\"][b]/ 6 1 1"},
        {"end of text behind quotes", u"a,\"b\"\uFFFFc\n", "[a][\"b\"]/ 5 1 1"},
        {"end of text behind blanks", u"a, \uFFFFb,c\n", "[a][ ]/ 3 1 1"},
        {"only delimiters", u",,\n", "[][][]/ 3 1 1"},
        {"blank fields make a line, one alone is empty", u" , \n  \n", "[ ][ ]// 7 2 1"},
        {"longer than a block", long_quoted, "[" + shown(long_quoted.substr(0, 154)) + "][z]/ 157 1 1"},
    });
}

options rules(std::uint8_t consecutive, std::uint8_t leading, std::uint8_t trailing) {
    return {.delimiters = {u","},
            .consecutive_delimiters_rule = consecutive,
            .leading_delimiters_rule = leading,
            .trailing_delimiters_rule = trailing};
}

TEST(DelimitedReader, DelimitersGoByTheirRules) {
    const options skipping = rules(run::separate, lead::skip, trail::keep);
    const options error_or_drop = rules(run::error, lead::keep, trail::drop);
    expect_readings<DelimitedRecordReader>({
        {"separate", u"a,b,\n,c\n", "[a][b][]/[][c]/ 8 2 2", rules(run::separate, lead::keep, trail::keep)},
        {"merge keeps one at the end", u"a,,b,,\n", "[a][b][]/ 7 1 1", rules(run::merge, lead::keep, trail::keep)},
        {"merge and drop", u"a,,b,,\n", "[a][b]/ 7 1 1", rules(run::merge, lead::keep, trail::drop)},
        {"skip", u",,a\n,,\n", "[a]// 7 2 1", skipping},
        {"skip to a comment, behind blanks too", u"a,b\n ,# c,d\ne,f\n", "[a][b]//[e][f]/ 16 3 2", skipping},
        {"leading error", u"a\n,a\n", "[a]/ leading record 0 field 0", rules(run::separate, lead::error, trail::keep)},
        {"a blank in front hides it", u" ,a\n", "[ ][a]/ 4 1 1", rules(run::separate, lead::error, trail::keep)},
        {"drop all", u"a\n,,,\nb,\n", "[a]//[b]/ 9 3 2", rules(run::separate, lead::keep, trail::drop)},
        {"trailing error", u"a\na,\n", "[a]/ trailing record 0 field 0", rules(run::separate, lead::keep, trail::error)},
        {"consecutive error", u"a\na,,b\n", "[a]/ consecutive record 0 field 0", rules(run::error, lead::keep, trail::keep)},
        {"consecutive first", u"a,,\n", " consecutive record 0 field 0", rules(run::error, lead::keep, trail::error)},
        {"error put off", u"a,,b\n", " consecutive record 0 field 0", error_or_drop},
        {"forgiven at the end", u"a,b,,\n", "[a][b]/ 6 1 1", error_or_drop},
        {"put off behind the first field", u",,,\n", "/ 4 1 0", error_or_drop},
        {"not only at the end", u"a,,b,,\n", " consecutive record 0 field 0", error_or_drop},
        {"values outside the tables", u",a,,\n", "[][a][][]/ 5 1 1", rules(7, 7, 7)},
    });
}

TEST(DelimitedReader, OddSets) {
    const options merged_end{.delimiters = {u"\uFFFF"}, .consecutive_delimiters_rule = run::merge};
    expect_readings<DelimitedRecordReader>({
        {"none", u"a,b\n", "[a,b]/ 4 1 1", {.delimiters = {}}},
        {"several", u"a;b,c\n", "[a][b][c]/ 6 1 1", {.delimiters = {u";", u","}}},
        {"two units, and its first alone", u"a:b::c:\n", "[a:b][c:]/ 8 1 1", {.delimiters = {u"::"}}},
        {"end of text behind a first unit", u"a:\uFFFF::\n", "[a:]/ 2 1 1", {.delimiters = {u"::"}}},
        {"the longest wins", u"a->b-c\n", "[a][b][c]/ 7 1 1", {.delimiters = {u"-", u"->"}}},
        {"a line ending goes first", u"a,b\nc", "[a][b]/[c]/ 5 2 2", {.delimiters = {u"\n", u","}}},
        {"it begins a line ending", u"a\rb\r\nc", "[a][b]/[c]/ 6 2 2", {.delimiters = {u"\r"}, .line_endings = {u"\r\n"}}},
        {"the quote", u"a\"b\"c\"\n\"d\n", "[a][b][c][]/[\"d\\n]/ 10 2 2", {.delimiters = {u"\""}}},
        {"blanks that end lines", u"a, \nb\n\nc\n", "[a][ \\nb]//[c]/ 9 3 2", {.delimiters = {u","}, .whitespace = u" \n"}},
        {"the end of the text", u"a", "[a]/ 1 1 1", {.delimiters = {u"\uFFFF"}}},
        {"the end of the text, merged", u"a", "[a]/ 1 1 1", merged_end},
    });
}

} // namespace
