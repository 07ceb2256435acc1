#include "parser/reading.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

using namespace test;
using namespace textio::parser;

TEST(DelimitedReader, FindsFields) {
    struct Case {
        const char* name;
        std::u16string text;
        std::string expected;
    };
    const std::u16string long_quoted = u"\"" + std::u16string(150, u',') + u"\"\"\",z\n";
    const std::vector<Case> cases{
        {"plain", u"a,b\n", "[a][b]/ 4 1 1"},
        {"no ending", u"a,b", "[a][b]/ 3 1 1"},
        {"quotes and blanks stay", u"  \"a,b\"  ,c\n", "[  \"a,b\"  ][c]/ 12 1 1"},
        {"doubled quote", u"\"a\"\"b,c\",d\n", "[\"a\"\"b,c\"][d]/ 11 1 1"},
        {"text behind the closing quote", u"\"a\"b,c\n", "[\"a\"b][c]/ 7 1 1"},
        {"quote inside opens nothing", u"a\"b,c\"d\n", "[a\"b][c\"d]/ 8 1 1"},
        {"never closed", u"\"a,b\nc", "[\"a,b\\nc]/ 6 1 1"},
        {"closing quote is the last unit", u"a,\"b\"", "[a][\"b\"]/ 5 1 1"},
        {"two lines in quotes", u"\"a\nb\",c\nd\n", "[\"a\\nb\"][c]/[d]/ 10 2 2"},
        {"quoted end of text", u"\"\uFFFF\",b\n", "[\"\\uFFFF\"][b]/ 6 1 1"},
        {"end of text behind blanks", u"a, \uFFFFb,c\n", "[a][ ]/ 3 1 1"},
        {"only delimiters", u",,\n", "[][][]/ 3 1 1"},
        {"blank fields make a line, one alone is empty", u" , \n  \n", "[ ][ ]// 7 2 1"},
        {"longer than a block", long_quoted, "[" + shown(long_quoted.substr(0, 154)) + "][z]/ 157 1 1"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(reading<DelimitedRecordReader>(c.text, comma_options()), c.expected) << c.name << ": " << shown(c.text);
    }
}

using Change = std::function<void(options&)>;

struct RuleCase {
    const char* name;
    Change change;
    std::u16string text;
    std::string expected;
};

void expect_readings(const std::vector<RuleCase>& cases) {
    for (const RuleCase& c : cases) {
        options options = comma_options();
        c.change(options);
        EXPECT_EQ(reading<DelimitedRecordReader>(c.text, options), c.expected) << c.name << ": " << shown(c.text);
    }
}

TEST(DelimitedReader, DelimitersGoByTheirRules) {
    const Change none = [](options&) {};
    const Change merge = [](options& o) { o.consecutive_delimiters_rule = consecutive_delimiters::merge; };
    const Change merge_drop = [](options& o) {
        o.consecutive_delimiters_rule = consecutive_delimiters::merge;
        o.trailing_delimiters_rule = trailing_delimiters::drop;
    };
    const Change error = [](options& o) { o.consecutive_delimiters_rule = consecutive_delimiters::error; };
    const Change error_drop = [](options& o) {
        o.consecutive_delimiters_rule = consecutive_delimiters::error;
        o.trailing_delimiters_rule = trailing_delimiters::drop;
    };
    const Change error_error = [](options& o) {
        o.consecutive_delimiters_rule = consecutive_delimiters::error;
        o.trailing_delimiters_rule = trailing_delimiters::error;
    };
    const Change skip = [](options& o) { o.leading_delimiters_rule = leading_delimiters::skip; };
    const Change lead_error = [](options& o) { o.leading_delimiters_rule = leading_delimiters::error; };
    const Change drop = [](options& o) { o.trailing_delimiters_rule = trailing_delimiters::drop; };
    const Change trail_error = [](options& o) { o.trailing_delimiters_rule = trailing_delimiters::error; };
    expect_readings({
        {"separate", none, u"a,b,\n,c\n", "[a][b][]/[][c]/ 8 2 2"},
        {"merge keeps one at the end", merge, u"a,,b,,\n", "[a][b][]/ 7 1 1"},
        {"merge and drop", merge_drop, u"a,,b,,\n", "[a][b]/ 7 1 1"},
        {"skip", skip, u",,a\n,,\n", "[a]// 7 2 1"},
        {"leading error", lead_error, u"a\n,a\n", "[a]/ leading record 0 field 0"},
        {"a blank in front hides it", lead_error, u" ,a\n", "[ ][a]/ 4 1 1"},
        {"drop all", drop, u"a\n,,,\nb,\n", "[a]//[b]/ 9 3 2"},
        {"trailing error", trail_error, u"a\na,\n", "[a]/ trailing record 0 field 0"},
        {"no trailing error", trail_error, u"a\n", "[a]/ 2 1 1"},
        {"consecutive error", error, u"a\na,,b\n", "[a]/ consecutive record 0 field 0"},
        {"error put off", error_drop, u"a,,b\n", " consecutive record 0 field 0"},
        {"forgiven at the end", error_drop, u"a,b,,\n", "[a][b]/ 6 1 1"},
        {"put off behind the first field", error_drop, u",,,\n", "/ 4 1 0"},
        {"put off and not at the end", error_drop, u"a,,b,,\n", " consecutive record 0 field 0"},
        {"consecutive before trailing", error_error, u"a,,\n", " consecutive record 0 field 0"},
        {"values outside the table",
         [](options& o) {
             o.consecutive_delimiters_rule = o.leading_delimiters_rule = 7;
             o.trailing_delimiters_rule = 7;
         },
         u",a,,\n", "[][a][][]/ 5 1 1"},
    });
}

TEST(DelimitedReader, OddSets) {
    expect_readings({
        {"none", [](options& o) { o.delimiters = {}; }, u"a,b\n", "[a,b]/ 4 1 1"},
        {"several",
         [](options& o) {
             o.delimiters = {u";", u","};
         },
         u"a;b,c\n", "[a][b][c]/ 6 1 1"},
        {"two units, and its first alone", [](options& o) { o.delimiters = {u"::"}; }, u"a:b::c:\n", "[a:b][c:]/ 8 1 1"},
        {"the longest wins",
         [](options& o) {
             o.delimiters = {u"-", u"->"};
         },
         u"a->b-c\n", "[a][b][c]/ 7 1 1"},
        {"a line ending goes first",
         [](options& o) {
             o.delimiters = {u"\n", u","};
         },
         u"a,b\nc", "[a][b]/[c]/ 5 2 2"},
        {"the quote", [](options& o) { o.delimiters = {u"\""}; }, u"a\"b\"c\"\n\"d\n", "[a][b][c][]/[\"d\\n]/ 10 2 2"},
        {"blanks that are line endings", [](options& o) { o.whitespace = u" \n"; }, u"a, \nb\n\nc\n", "[a][ \\nb]//[c]/ 9 3 2"},
        {"the end of the text",
         [](options& o) {
             o.delimiters = {u"\uFFFF"};
             o.leading_delimiters_rule = leading_delimiters::skip;
             o.consecutive_delimiters_rule = consecutive_delimiters::merge;
         },
         u"a", "[a]/ 1 1 1"},
    });
}

} // namespace
