// Meant for the thread sanitizer, which sees what two runs share; a wrong answer is seen without.
#include "reliability/layouts.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(Threads, ShareOptionsAndNothingElse) {
#if defined(__EMSCRIPTEN__) && !defined(__EMSCRIPTEN_PTHREADS__)
    GTEST_SKIP() << "this build has no threads";
#endif
    for (const test::LayoutCase& layout : test::layout_cases) {
        const zentor::io::text::typedetection::TypeAnalyzerOptions types;
        std::string answers[2];
        const auto detect = [&](std::string& found) {
            textio::detection::StrategySelector selector(layout.options, types);
            for (int run = 0; run < 20; ++run) {
                found = test::answer(selector, layout.text);
            }
        };
        std::thread other(detect, std::ref(answers[0]));
        detect(answers[1]);
        other.join();
        EXPECT_EQ(answers[0], answers[1]) << layout.name;
    }
}

} // namespace
