#include "parser/reading.hpp"

#include <gtest/gtest.h>

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

/// The rules for consecutive, leading and trailing delimiters.
struct Rules {
    std::uint8_t consecutive, leading, trailing;
};

TEST(DelimitedReader, DelimitersGoByTheirRules) {
    namespace run = consecutive_delimiters;
    namespace lead = leading_delimiters;
    namespace trail = trailing_delimiters;
    struct Case {
        const char* name;
        Rules rules;
        std::u16string text;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"separate", {run::separate, lead::keep, trail::keep}, u"a,b,\n,c\n", "[a][b][]/[][c]/ 8 2 2"},
        {"merge keeps one at the end", {run::merge, lead::keep, trail::keep}, u"a,,b,,\n", "[a][b][]/ 7 1 1"},
        {"merge and drop", {run::merge, lead::keep, trail::drop}, u"a,,b,,\n", "[a][b]/ 7 1 1"},
        {"skip", {run::separate, lead::skip, trail::keep}, u",,a\n,,\n", "[a]// 7 2 1"},
        {"leading error", {run::separate, lead::error, trail::keep}, u"a\n,a\n", "[a]/ leading record 0 field 0"},
        {"a blank in front hides it", {run::separate, lead::error, trail::keep}, u" ,a\n", "[ ][a]/ 4 1 1"},
        {"drop all", {run::separate, lead::keep, trail::drop}, u"a\n,,,\nb,\n", "[a]//[b]/ 9 3 2"},
        {"trailing error", {run::separate, lead::keep, trail::error}, u"a\na,\n", "[a]/ trailing record 0 field 0"},
        {"no trailing error", {run::separate, lead::keep, trail::error}, u"a\n", "[a]/ 2 1 1"},
        {"consecutive error", {run::error, lead::keep, trail::keep}, u"a\na,,b\n", "[a]/ consecutive record 0 field 0"},
        {"error put off", {run::error, lead::keep, trail::drop}, u"a,,b\n", " consecutive record 0 field 0"},
        {"forgiven at the end", {run::error, lead::keep, trail::drop}, u"a,b,,\n", "[a][b]/ 6 1 1"},
        {"put off behind the first field", {run::error, lead::keep, trail::drop}, u",,,\n", "/ 4 1 0"},
        {"not only at the end", {run::error, lead::keep, trail::drop}, u"a,,b,,\n", " consecutive record 0 field 0"},
        {"consecutive first", {run::error, lead::keep, trail::error}, u"a,,\n", " consecutive record 0 field 0"},
        {"values outside the tables", {7, 7, 7}, u",a,,\n", "[][a][][]/ 5 1 1"},
    };
    for (const Case& c : cases) {
        options options = comma_options();
        options.consecutive_delimiters_rule = c.rules.consecutive;
        options.leading_delimiters_rule = c.rules.leading;
        options.trailing_delimiters_rule = c.rules.trailing;
        EXPECT_EQ(reading<DelimitedRecordReader>(c.text, options), c.expected) << c.name << ": " << shown(c.text);
    }
}

TEST(DelimitedReader, OddSets) {
    struct Case {
        const char* name;
        std::vector<std::u16string> delimiters;
        std::u16string whitespace;
        std::u16string text;
        std::string expected;
    };
    const std::vector<Case> cases{
        {"none", {}, u" ", u"a,b\n", "[a,b]/ 4 1 1"},
        {"several", {u";", u","}, u" ", u"a;b,c\n", "[a][b][c]/ 6 1 1"},
        {"two units, and its first alone", {u"::"}, u" ", u"a:b::c:\n", "[a:b][c:]/ 8 1 1"},
        {"the longest wins", {u"-", u"->"}, u" ", u"a->b-c\n", "[a][b][c]/ 7 1 1"},
        {"a line ending goes first", {u"\n", u","}, u" ", u"a,b\nc", "[a][b]/[c]/ 5 2 2"},
        {"the quote", {u"\""}, u" ", u"a\"b\"c\"\n\"d\n", "[a][b][c][]/[\"d\\n]/ 10 2 2"},
        {"blanks that are line endings", {u","}, u" \n", u"a, \nb\n\nc\n", "[a][ \\nb]//[c]/ 9 3 2"},
        {"the end of the text", {u"\uFFFF"}, u" ", u"a", "[a]/ 1 1 1"},
    };
    for (const Case& c : cases) {
        options options = comma_options();
        options.delimiters = c.delimiters;
        options.whitespace = c.whitespace;
        EXPECT_EQ(reading<DelimitedRecordReader>(c.text, options), c.expected) << c.name << ": " << shown(c.text);
    }
}

TEST(DelimitedReader, WhatSkippedDelimitersLeadTo) {
    options options = comma_options();
    options.comment_style = {u"#"};
    options.leading_delimiters_rule = leading_delimiters::skip;
    EXPECT_EQ(reading<DelimitedRecordReader>(u"a,b\n ,# c,d\ne,f\n", options), "[a][b]//[e][f]/ 16 3 2")
        << "a comment, behind blanks too";
    options.delimiters = {u"\uFFFF"};
    EXPECT_EQ(reading<DelimitedRecordReader>(u"a", options), "[a]/ 1 1 1") << "past the end there is none";
}

} // namespace
