#include "advised.hpp"
#include "picture.hpp"
#include "running.hpp"
#include "string_bytes.hpp"
#include "table.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;
using Json = nlohmann::json;

Json answer_to(const std::string& arguments) {
    const Outcome result = run("--json " + arguments);
    EXPECT_EQ(result.status, 0) << arguments << result.errors;
    return Json::parse(result.output, nullptr, false);
}

TEST(Advised, never_doubts_what_the_user_says) {
    struct Case {
        const char* arguments;
        const char* member;
        Json expected;
    };
    for (const Case& test : std::vector<Case>{
             {"--quote '' staff_crlf.csv", "quote", nullptr},
             {"--quote \\' staff_crlf.csv", "quote", "'"},
             {"--decimal . rechnungen.csv", "decimal", "."},
             {"--thousands '' rechnungen.csv", "thousands", nullptr},
             {"--thousands \\' rechnungen.csv", "thousands", "'"},
             {"--no-comments weather_comments.csv", "comment", nullptr},
             {"--comment % weather_comments.csv", "comment", "%"},
             {"--comment '/*' --comment-end '*/' wind_tunnel.txt", "comment_end", "*/"},
             {"--comment '/*' --comment-end '*/' wind_tunnel.txt", "rows", 16},
             {"--layout lines stock.txt", "kind", "line"},
             {"--layout aligned stations.txt", "kind", "space_aligned"},
             {"--layout delimited gate_log.txt", "kind", "delimited"},
             {"--layout fixed spectrum.txt", "kind", "fixed_width"},
             {"--layout no-fixed gate_log.txt", "kind", "space_aligned"},
             {"--layout no-fixed gate_log.txt", "is_table", true},
             {"--layout no-fixed pool_tickets.csv", "delimiters", Json::array({","})},
             {"--layout no-fixed letter.txt", "is_table", false},
             {"--delimiter , stock.txt", "delimiters", Json::array({","})},
             {"--delimiter '|4' stock.txt", "delimiters", Json::array({"|4"})},
             {"--delimiter '\\t' stock.txt", "num_variables", 1},
             {"--widths 5,1,30 stock.txt", "kind", "fixed_width"},
             {"--widths 5,1,30 stock.txt", "num_variables", 3},
             {"--header-lines 5 pool_tickets.csv", "first_data_line", 5},
             {"--first-data-line 6 pool_tickets.csv", "first_data_line", 5},
             {"--first-data-line 6 pool_tickets.csv", "header_lines", 5},
             {"--first-data-line 6 --rules pool_tickets.csv", "header_lines", 5},
             {"--names-line 0 pool_tickets.csv", "names_line", nullptr},
             {"--names-line 1 pool_tickets.csv", "names_line", 0},
             {"--rows 3 pool_tickets.csv", "rows", 1}, // the title and the names are rows too
             {"- <stock.txt", "num_variables", 5},
         }) {
        const Json answer = answer_to(test.arguments);
        EXPECT_TRUE(answer.contains(test.member)) << test.arguments;
        EXPECT_EQ(answer.value(test.member, Json("nothing")), test.expected) << test.arguments;
    }
    const auto missing = [](const std::string& arguments) {
        return answer_to(arguments + " sequencing.tsv")["columns"][5]["missing"].get<int>();
    };
    EXPECT_EQ(missing(""), 8);
    EXPECT_GT(missing("--missing rerun"), 8);
}

TEST(Advised, tells_where_the_rules_differ) {
    struct Case {
        const char* arguments;
        Json agree;
        const char* line;
    };
    for (const Case& test : std::vector<Case>{
             {"gate_log.txt", false, "  rules differ   delimited by space, 4 variables (see --rules)\n"},
             {"wind_tunnel.txt", false, "  rules differ   aligned with blanks, 4 variables (see --rules)\n"},
             {"stock.txt", true, ""},
             {"inspection_dates.txt", true, ""}, // a comma without a second field
             {"--layout aligned gate_log.txt", nullptr, ""},
             {"--delimiter , stock.txt", nullptr, ""},
         }) {
        EXPECT_EQ(answer_to(test.arguments)["rules_agree"], test.agree) << test.arguments;
        const std::string output = run(test.arguments).output;
        EXPECT_EQ(output.find("rules differ") != std::string::npos, *test.line != '\0') << output;
        EXPECT_NE(output.find(test.line), std::string::npos) << output;
    }
}

TEST(Advised, is_all_in_the_json) {
    const Json answer = answer_to("race_blank_lines.csv");
    EXPECT_EQ(answer["names_line"], 3);
    EXPECT_EQ(answer["first_data_line"], 4);
    EXPECT_EQ(answer["rows"], 12);
    EXPECT_EQ(answer["columns"][1], Json::parse(R"({"name": "Club", "class": "text", "values": 11, "missing": 1})"));
    EXPECT_EQ(answer["columns"][2]["class"], "short_duration");
    EXPECT_EQ(answer["quote"], "\"");
    EXPECT_TRUE(answer["decimal"].is_null() && answer["thousands"].is_null() && answer["comment"].is_null());

    const Json two = answer_to("--explain gate_log.txt");
    ASSERT_GE(two["proposals"].size(), 2U);
    EXPECT_EQ(two["proposals"][0]["kind"], two["kind"]);
    EXPECT_EQ(two["proposals"][1]["delimiters"], Json::array({":"}));
    for (const Json& proposal : two["proposals"]) {
        double product = 1;
        for (const auto& [name, value] : proposal["terms"].items()) {
            product *= value.get<double>();
        }
        EXPECT_NEAR(product, proposal["score"].get<double>(), 1e-9);
        EXPECT_EQ(proposal["regular_rows"], 30);
    }
    EXPECT_LT(two["confidence"], 1.5);
    EXPECT_EQ(two["candidates"].size(), 4U);
    EXPECT_FALSE(answer.contains("candidates"));
}

TEST(Advised, is_explained_in_words) {
    const std::string text = run("--explain gate_log.txt").output;
    for (const char* part : {
             "  confidence     look at it: could also be delimited by colon with 3 columns\n",
             "  aligned with blanks: 100 % of rows have 4 fields, 1 of 4 columns holds numbers, 1 dates or times, 2 text\n",
             "  delimited by colon: 100 % of rows have 3 fields, 2 of 3 columns hold numbers, 1 text\n",
             "lowered by cells that prove little (",
             "  The rule 'usual delimiter' decided.\n",
         }) {
        EXPECT_NE(text.find(part), std::string::npos) << part << text;
    }
    const std::string told = run("--explain --delimiter : gate_log.txt").output;
    EXPECT_NE(told.find("Readings"), std::string::npos) << told;
    EXPECT_EQ(told.find("The rule"), std::string::npos) << "the rules know nothing of the delimiter\n" << told;
}

TEST(Advised, lists_many_columns_in_part) {
    std::string row = "1";
    for (int i = 0; i < 40; ++i) {
        row += ";2.5";
    }
    const Outcome result = run_script("printf '%s\\n%s\\n%s\\n' '" + row + "' '" + row + "' '" + row + "' | $program -");
    EXPECT_NE(result.output.find("  columns        41\n    column 1     number\n"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("    column 24    number\n    ⋮ 17 more\n"), std::string::npos) << result.output;
}

TEST(Picture, shows_names_from_wherever_they_stand) {
    struct Case {
        const char* name;
        std::string text;
        std::string picture;
    };
    const std::string rows = "1,2.5,ok\n3,4.5,no\n5,6.5,ok\n7,8.5,ok\n";
    const std::string shown = "1 │ 2.5  │ ok\n3 │ 4.5  │ no\n⋮ 2 more in the sample\n";
    const std::string line = "──┼──────┼──────\n";
    for (const Case& test : std::vector<Case>{
             {"first line", "n,size,state\n" + rows, "n │ size │ state\n" + line + shown},
             {"a title above", "Bolts\n\nn,size,state\n" + rows, "Bolts\nn │ size │ state\n" + line + shown},
             {"in a comment", "# Bolts\n# n,size,state\n" + rows, "# Bolts\nn │ size │ state\n" + line + shown},
             {"names in quotes", "\"n\",\"size\",\"state\"\r\n" + rows, "n │ size │ state\n" + line + shown},
             {"units below", "n,size,state\n,mm,\n" + rows, "n │ size │ state\n  │ mm   │ \n" + line + shown},
         }) {
        const Advised advised = advise("-", std::make_unique<StringBytes>(test.text), Settings());
        EXPECT_EQ(draw_picture(table_of(advised), {.data_rows = 2}), test.picture) << test.name;
    }
    const Advised titled = advise("-", std::make_unique<StringBytes>("Bolts\n\nn,size,state\n" + rows), Settings());
    const std::string coloured = draw_picture(table_of(titled), {.colour = true});
    for (const char* part : {"\x1b[2mBolts\x1b[0m", "\x1b[1;36mn\x1b[0m", "\x1b[36m1\x1b[0m"}) {
        EXPECT_NE(coloured.find(part), std::string::npos) << part;
    }
}

TEST(SampleWalk, keeps_to_the_lines_of_the_text) {
    // A quoted line break in the names, and comments that leave no fields.
    const std::u16string text = u"a;\"b\nc\"\r\n# one\n1;2\r\r3;4";
    Settings settings;
    settings.known.delimiter = u";";
    settings.known.comment_style = {u"#"};
    const auto advice = textio::advice::advise(textio::Field(text), 250, settings.known);
    const auto& sample = *advice.proposals.front().strategy->field_array();
    SampleWalk walk(text, sample);
    std::vector<std::size_t> lines;
    std::vector<std::u16string_view> texts;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        lines.push_back(walk.text_line());
        texts.push_back(walk.next());
    }
    EXPECT_EQ(lines, (std::vector<std::size_t>{0, 2, 3, 4, 5}));
    EXPECT_EQ(texts, (std::vector<std::u16string_view>{u"a;\"b\nc\"", u"# one", u"1;2", u"", u"3;4"}));
}

} // namespace
