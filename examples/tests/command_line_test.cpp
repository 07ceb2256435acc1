// The words of the command line: how they are read, and what the shell offers.
#include "command_line.hpp"
#include "running.hpp"
#include "string_bytes.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using namespace detect_layout;

TEST(CommandLine, takes_comments_with_and_without_a_closer) {
    struct Case {
        std::vector<const char*> arguments;
        std::vector<std::u16string> comment_style;
        std::vector<std::string> inputs;
    };
    const std::vector<Case> cases{
        {{"x"}, {u"#"}, {"x"}},
        {{"--comment", "%", "x"}, {u"%"}, {"x"}},
        {{"--comment", "/*", "--comment-end", "*/", "x"}, {u"/*", u"*/"}, {"x"}},
        {{"--comment", "//", "missing.csv", "x"}, {u"//"}, {"missing.csv", "x"}},
        {{"x", "--comment-end=*/", "--comment=/*"}, {u"/*", u"*/"}, {"x"}},
        {{"x", "--no-comments"}, {}, {"x"}},
        {{"--comment", "%", "--", "-dash.csv", "--json"}, {u"%"}, {"-dash.csv", "--json"}},
    };
    for (const Case& test : cases) {
        auto arguments = test.arguments;
        arguments.insert(arguments.begin(), "detect_layout");
        const auto settings = read_command_line(static_cast<int>(arguments.size()), arguments.data());
        EXPECT_EQ(settings.options.comment_style, test.comment_style) << testing::PrintToString(test.arguments);
        EXPECT_EQ(settings.inputs, test.inputs) << testing::PrintToString(test.arguments);
    }
}

TEST(CommandLine, keeps_the_decimal_mark_from_being_a_delimiter) {
    const std::vector<const char*> plain{"detect_layout", "--decimal", ",", "x"};
    EXPECT_EQ(read_command_line(4, plain.data()).options.excluded_delimiter, u",");
    const std::vector<const char*> open{"detect_layout", "--rules", "--decimal", ",", "--exclude-delimiter", "", "x"};
    EXPECT_EQ(read_command_line(7, open.data()).options.excluded_delimiter, u"");
    const std::vector<const char*> tab{"detect_layout", "--rules", "--exclude-delimiter", "\\t", "x"};
    EXPECT_EQ(read_command_line(5, tab.data()).options.excluded_delimiter, u"\t");
}

TEST(Completion, offers_what_can_follow) {
    for (const auto& [words, offered] : std::vector<std::pair<std::string, std::string>>{
             {"--layout f", "fixed"},
             {"--layout = f", "fixed"},
             {"--layout =", "open delimited aligned fixed lines no-fixed"},
             {"--first-data-line =", ""},
             {"--encoding = KO", "KOI8-R"},
             {"--json --comment-", "--comment-end"},
             {"import x.csv --for p", "pandas polars postgres python-csv"},
             {"import --fo", "--for"},
             {"--show ''", ""},
             {"--rows = 1", ""},
             {"stock", "stock.txt"},
             {"conv", "convert"},
             {"x conv", ""},
             {"convert --iso", "--iso-dates"},
             {"convert --to = js", "jsonl"},
             {"convert --irregular s", "skip stop"},
             {"convert --rul", ""},
             {"diff --fo", ""},
             {"--fo", ""},
         }) {
        const Outcome result =
            run_script("bash -c \"source ../detect_layout/detect_layout.bash; COMP_WORDS=(detect_layout " + words +
                       "); COMP_CWORD=\\$((\\${#COMP_WORDS[@]} - 1)); _detect_layout; echo \\${COMPREPLY[*]}\"");
        EXPECT_EQ(result.output, offered + "\n") << words;
    }
}

} // namespace
