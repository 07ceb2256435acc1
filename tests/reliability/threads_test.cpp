// Selectors on several threads that share one pair of option records. Meant for the thread
// sanitizer, which sees what they share besides; a wrong answer is seen without it.
#include "reliability/layouts.hpp"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace {

TEST(Threads, ShareOptionsAndNothingElse) {
    for (const auto& [name, text, options] : test::layout_cases()) {
        const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
        textio::detection::StrategySelector selector(options, type_options);
        const std::string expected = test::answer(selector, text);
        std::array<std::string, 2> answers;
        const auto detect = [&, &text = text, &options = options](std::string& found) {
            textio::detection::StrategySelector own_selector(options, type_options);
            for (int run = 0; run < 20; ++run) {
                found = test::answer(own_selector, text);
            }
        };
        {
            const std::jthread first(detect, std::ref(answers[0]));
            const std::jthread second(detect, std::ref(answers[1]));
        }
        EXPECT_EQ(answers[0], expected) << name;
        EXPECT_EQ(answers[1], expected) << name;
    }
}

} // namespace
