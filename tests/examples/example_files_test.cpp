#include "command_line.hpp"
#include "detection.hpp"
#include "explanation.hpp"
#include "layout_names.hpp"
#include "text_input.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
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

std::vector<Case> cases() {
    return {};
}

class ExampleFile : public testing::TestWithParam<Case> {};

TEST_P(ExampleFile, gets_the_expected_answer) {
    const Case& test = GetParam();
    const std::string path = EXAMPLE_DATA "/" + test.file;
    std::vector<const char*> arguments{"detect_layout", path.c_str()};
    arguments.insert(arguments.end(), test.known.begin(), test.known.end());
    const auto settings =
        read_command_line(static_cast<int>(arguments.size()), arguments.data()).value();
    const Detection found = detect(path, open_bytes(path), settings);
    EXPECT_EQ(layout_phrase(*found.layout), test.layout);
    EXPECT_EQ(found.layout->header_lines(), test.header_lines);
    EXPECT_EQ(found.layout->num_variables(), test.num_variables);
    EXPECT_EQ(found.input->character_set(), test.character_set);
    EXPECT_EQ(found.input->undecodable(), test.undecodable);

    // The explanation takes the decision anew, and must come to the same end.
    const auto candidates = explain(found.input->text(), settings).candidates;
    const auto chosen = std::find_if(candidates.begin(), candidates.end(),
                                     [](const auto& each) { return each.verdict == "chosen"; });
    EXPECT_EQ(chosen == candidates.end() ? "delimited by comma" : chosen->layout, test.layout);
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFile, testing::ValuesIn(cases()), [](const auto& info) {
    std::string name = info.param.file;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

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
