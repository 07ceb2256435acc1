#include "picker/rule_cases.hpp"

namespace {

using namespace textio::detection;
using Valuation = textio::StrategyValuation;

TEST(ClassicRules, EachRuleDecidesBeforeTheNext) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr auto rows =
        valued<&Valuation::num_variables, &Valuation::temporal_variables, &Valuation::data_variation, &Valuation::num_lines,
               &Valuation::numeric_variables, &Valuation::header_lines, &Valuation::classified_variables, &Valuation::prior_rank>;
    // The picks: of any number of variables, with three expected, and without detecting a header.
    const std::vector<std::tuple<const char*, Valuations, int, int, int>> cases{
        {"nobody", {}, -1, -1, -1},
        {"one", rows({{2, 0, infinity, 1, 0, 0, 0, infinity}}), 0, 0, 0},
        {"count", rows({{2, 1, 0, 9, 0, 0, 1, 0}, {3, 0, 0, 9, 0, 0, 1, 1}}), 0, 1, 0},
        {"dates", rows({{2, 0, 0, 9, 0, 0, 2, 0}, {2, 1, .5, 9, 0, 0, 2, 1}}), 1, 1, 1},
        {"variation", rows({{2, 0, .5, 9, 2, 0, 2, 0}, {2, 0, 0, 9, 0, 0, 2, 1}}), 1, 1, 1},
        {"classes", rows({{2, 0, 0, 9, 1, 0, 2, 0}, {2, 0, 0, 9, 2, 9, 2, 1}}), 1, 1, 1},
        {"header", rows({{4, 0, 0, 9, 0, 2, 2, 0}, {5, 0, 0, 9, 0, 1, 2, 1}}), 1, 1, 0},
        {"share", rows({{5, 0, 0, 9, 0, 0, 2, 0}, {4, 0, 0, 9, 0, 0, 2, 1}}), 1, 1, 1},
        {"first of equals", rows({{2, 0, 0, 9, 0, 0, 2, 1}, {2, 0, 0, 9, 0, 0, 2, 1}}), 0, 0, 0},
        {"uncommon", rows({{2, 0, 0, 9, 0, 0, 2, 4}, {2, 0, 0, 9, 0, 0, 2, 4}}), -2, -2, -2},
        {"one prior of several", rows({{4, 0, 0, 100, 3, 1, 4, 0}, {4, 0, 0, 100, 3, 1, 4, 3}, {2, 0, 1.5, 100, 0, 1, 2, 2}}), 0,
         0, 0},
    };
    for (const auto& [name, valuations, any, three, without_header] : cases) {
        Valuations values = valuations;
        EXPECT_EQ(ClassicRules(true, 3, true).pick(values), any) << name;
        EXPECT_EQ(ClassicRules(false, 3, true).pick(values), three) << name;
        EXPECT_EQ(ClassicRules(true, 3, false).pick(values), without_header) << name;
    }
}

TEST(ClassicRules, HoldOnlyTheRulesAskedFor) {
    EXPECT_EQ(ClassicRules(true, 5, false).rules().size(), 5U);
    EXPECT_EQ(ClassicRules(false, 5, true).rules().size(), 7U);
    EXPECT_TRUE(picker_rules::Rule{}.reduce({0}, Valuations(1)).empty());
}

} // namespace
