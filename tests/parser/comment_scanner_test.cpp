#include "parser/reading.hpp"

namespace {

using namespace test;
using namespace textio::parser;

struct Case {
    const char* name;
    std::vector<std::u16string> style;
    std::u16string text;
    Request request;
    std::string line;      ///< read as one field per line
    std::string delimited; ///< read at commas, leading ones skipped
    std::string fixed;     ///< read at widths 2 and 9
};

const std::vector<std::u16string> block{u"/*", u"*/"};

TEST(Comments, ArePassedOverAtTheStartOfARecord) {
    const std::vector<Case> cases{
        {"to the line's end", {u"#"}, u"  # x\n1 # y\n", {}, "/[1 # y]/ 12 2 1", "/[1 # y]/ 12 2 1", "/[1 ][# y]/ 12 2 1"},
        {"of three strings, the first", {u"#", u"a", u"b"}, u"#x\n1\n", {}, "/[1]/ 5 2 1", "/[1]/ 5 2 1", "/[1]/ 5 2 1"},
        {"empty string", {u""}, u"#x\n", {}, "[#x]/ 3 1 1", "[#x]/ 3 1 1", "[#x]/ 3 1 1"},
        {"the end of text is no opener", {u"\uFFFF"}, u"1\n\uFFFF2\n3\n", {}, "[1]/ 2 1 1", "[1]/ 2 1 1", "[1]/ 2 1 1"},
        {"without line ending", {u"#"}, u"1\n#x", {}, "[1]// 4 2 1", "[1]// 4 2 1", "[1]// 4 2 1"},
        {"the opener alone", {u"#"}, u"#", {}, "/ 1 1 0", "/ 1 1 0", "/ 1 1 0"},
        {"behind skipped delimiters", {u"#"}, u",,#x\n1\n", {}, "[,,#x]/[1]/ 7 2 2", "/[1]/ 7 2 1", "[,,][#x]/[1]/ 7 2 2"},
        {"one line, then text", block, u"/*x*/ 1,2\n3\n", {}, "[1,2]/[3]/ 12 2 2", "[1][2]/[3]/ 12 2 2", "[ 1][,2]/[3]/ 12 2 2"},
        {"then a delimiter and a blank", block, u"/*x*/, \n1\n", {}, "[, ]/[1]/ 10 2 2", "/[1]/ 10 2 1", "[, ]/[1]/ 10 2 2"},
        {"indented, its closer longer", {u"#", u"###"}, u"  #", {}, " 3 0 0", " 3 0 0", " 3 0 0"},
        {"two lines, nothing behind", block, u"/*x\ny*/ \n1\n", {}, "//[1]/ 11 3 1", "//[1]/ 11 3 1", "//[1]/ 11 3 1"},
        {"three lines, then text", block, u"/*\n\n*/1\n", {}, "//[1]/ 8 3 1", "//[1]/ 8 3 1", "//[1]/ 8 3 1"},
        {"a second on the line is text", block, u"/**//*y*/\n", {}, "[/*y*/]/ 10 1 1", "[/*y*/]/ 10 1 1", "[/*][y*/]/ 10 1 1"},
        {"with an end of text", block, u"/*x\uFFFF\n*/1\n", {}, "/[1]/ 9 2 1", "/[1]/ 9 2 1", "/[1]/ 9 2 1"},
        {"long ends", {u"<!--", u"-->"}, u"<!--\n--y-->1\n<!", {}, "/[1]/[<!]/ 15 3 2", "/[1]/[<!]/ 15 3 2", "/[1]/[<!]/ 15 3 2"},
        {"never closed", block, u"1\n/*x\ny", {}, "[1]// 7 2 1", "[1]// 7 2 1", "[1]// 7 2 1"},
        {"block opener alone", block, u"/*", {}, " 2 0 0", " 2 0 0", " 2 0 0"},
        {"closed at the end", block, u"/*x*/", {}, "/ 5 1 0", "/ 5 1 0", "/ 5 1 0"},
        {"rows are limited", {u"#"}, u"#\n#\n1\n#\n2\n", {.rows = 1}, "//[1]/ 6 3 1", "//[1]/ 6 3 1", "//[1]/ 6 3 1"},
        {"lines are limited", block, u"/*\n\n*/1\n2\n", {.lines = 2}, "// 6 2 0", "// 6 2 0", "// 6 2 0"},
        {"exactly the lines", block, u"/*\n\n*/1\n2\n", {.lines = 3}, "//[1]/ 8 3 1", "//[1]/ 8 3 1", "//[1]/ 8 3 1"},
    };
    for (const Case& c : cases) {
        const options options{.delimiters = {u","},
                              .comment_style = c.style,
                              .field_widths = {2, 9},
                              .leading_delimiters_rule = leading_delimiters::skip};
        expect_readings<LineRecordReader>({{c.name, c.text, c.line, options, c.request}});
        expect_readings<FixedWidthRecordReader>({{c.name, c.text, c.fixed, options, c.request}});
        expect_readings<DelimitedRecordReader>({{c.name, c.text, c.delimited, options, c.request}});
    }
}

TEST(Comments, AreFoundBehindBlanksThatEndLines) {
    const options options{
        .delimiters = {u","}, .whitespace = u" \n", .field_widths = {9}, .leading_delimiters_rule = leading_delimiters::skip};
    expect_readings<LineRecordReader>({{"lines", u"\n \n1\n\n#x\n\n\n2", "//[1]////[2]/ 12 7 2", options}});
    expect_readings<FixedWidthRecordReader>({{"widths", u"\n \n1\n\n#x\n\n\n2", "//[1]////[2]/ 12 7 2", options}});
    expect_readings<DelimitedRecordReader>({{"delimiters", u"\n \n,,1\n\n,#x\n\n\n2", "/[ \\n][][1]////[2]/ 15 6 2", options}});
}

} // namespace
