#include "bytes.hpp"
#include "command_line.hpp"
#include "detection.hpp"
#include "explanation.hpp"
#include "layout_names.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;

struct Case {
    std::string file;
    std::vector<const char*> known; ///< options for the host
    std::string layout;
    std::size_t header_lines;
    std::size_t num_variables;
    std::string character_set = "UTF-8";
    std::size_t undecodable = 0;
};

void PrintTo(const Case& test, std::ostream* out) {
    *out << test.file;
}

std::vector<Case> cases() {
    return {
        {"broken_bytes.csv", {}, "delimited by comma", 0, 3, "UTF-8", 1},
        {"cities_utf16.txt", {}, "delimited by tab", 0, 3, "UTF-16LE"},
        {"empty.txt", {}, "one field per line", 0, 1},
        {"gate_log.txt", {}, "delimited by space", 0, 4},
        {"inspection_dates.txt", {}, "delimited by comma", 0, 1},
        {"letter.txt", {}, "one field per line", 0, 1},
        {"meter_readings.csv", {}, "delimited by comma", 0, 4},
        {"orbit.dat", {}, "aligned with blanks", 2, 5},
        {"pool_tickets.csv", {}, "delimited by comma", 1, 5},
        {"race_blank_lines.csv", {}, "delimited by semicolon", 3, 4},
        {"rechnungen.csv", {"--decimal", ",", "--thousands", "."}, "delimited by semicolon", 0, 6},
        {"reviews.csv", {}, "delimited by comma", 0, 5},
        {"sequencing.tsv", {}, "delimited by tab", 0, 6},
        {"spectrum.txt", {}, "aligned with blanks", 3, 4},
        {"staff_crlf.csv", {}, "delimited by comma", 0, 4},
        {"stations.txt", {}, "fixed widths 7, 21, 9, 7, 8", 0, 5},
        {"stock.txt", {}, "delimited by vertical bar", 0, 5},
        {"switch_log.csv", {}, "delimited by comma", 0, 4},
        {"volunteers.txt", {}, "one field per line", 0, 1},
        {"weather_comments.csv", {}, "delimited by comma", 2, 4},
        {"wind_tunnel.txt", {"--comment", "/*", "--comment-end", "*/"}, "delimited by semicolon", 3, 4},
        {"wohnungen_cp1252.csv", {}, "delimited by semicolon", 0, 4, "windows-1252"},
    };
}

class ExampleFile : public testing::TestWithParam<Case> {};

TEST_P(ExampleFile, gets_the_expected_answer) {
    const Case& test = GetParam();
    const std::string path = EXAMPLE_DATA "/" + test.file;
    std::vector<const char*> arguments{"detect_layout"};
    arguments.insert(arguments.end(), test.known.begin(), test.known.end());
    arguments.push_back(path.c_str());
    const auto settings = read_command_line(static_cast<int>(arguments.size()), arguments.data());
    const Detection found = detect(path, open_bytes(path), settings);
    EXPECT_EQ(layout_phrase(*found.layout), test.layout);
    EXPECT_EQ(found.layout->header_lines(), test.header_lines);
    EXPECT_EQ(found.layout->num_variables(), test.num_variables);
    EXPECT_EQ(found.input->character_set().name, test.character_set);
    EXPECT_EQ(found.input->undecodable(), test.undecodable);

    // The explanation takes the decision anew, and must come to the same end.
    const auto candidates = explain(found.input->text(), settings).candidates;
    const auto chosen =
        std::find_if(candidates.begin(), candidates.end(), [](const auto& each) { return each.verdict == "chosen"; });
    EXPECT_EQ(chosen == candidates.end() ? "delimited by comma" : chosen->layout, test.layout);
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFile, testing::ValuesIn(cases()), [](const auto& test) {
    std::string name = test.param.file;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

TEST(Explanation, calls_each_rule_by_a_name_of_its_own) {
    std::vector<std::string_view> names;
    const textio::detection::ClassicRules chain(false, 3, true);
    for (const auto& rule : chain.rules()) {
        names.push_back(rule_name(*rule));
    }
    const std::vector<std::string_view> expected{"expected variables", "dates",          "regular lines",  "kinds of values",
                                                 "short header",       "filled columns", "usual delimiter"};
    EXPECT_EQ(names, expected);
    class : public textio::detection::picker_rules::Rule {
    } unknown;
    EXPECT_EQ(rule_name(unknown), "a rule without a name");
}

TEST(ExampleFiles, are_all_tested) {
    std::set<std::string> tested{"README.md"};
    for (const Case& test : cases()) {
        tested.insert(test.file);
    }
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_DATA)) {
        EXPECT_TRUE(tested.contains(entry.path().filename().string())) << entry.path();
    }
}

} // namespace
