#include "picker/rule_cases.hpp"

namespace {

using namespace textio::detection::picker_rules;
using Valuation = textio::StrategyValuation;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr auto lines = valued<&Valuation::data_variation, &Valuation::num_lines>;
constexpr auto classes = valued<&Valuation::classified_variables, &Valuation::datetime_variables, &Valuation::temporal_variables,
                                &Valuation::numeric_variables, &Valuation::punctuation_variables>;
constexpr auto headers = valued<&Valuation::data_variation, &Valuation::header_lines>;
constexpr auto ranks = valued<&Valuation::prior_rank>;

TEST(QualityRules, Variation) {
    const Valuations irregular = lines({{.5, 256}, {.549, 9}, {.551, 9}, {infinity, 9}});
    expect_kept(variation{}, {{"a tenth of the best", irregular, {0, 1, 2, 3}, {0, 1}},
                              {"best is no candidate", irregular, {3, 2}, {2}},
                              {"at the margin", lines({{0, 1024}, {.009, 9}, {.01, 9}}), {0, 1, 2}, {0, 1}},
                              {"one line, no margin", lines({{0, 1}, {5, 1}}), {0, 1}, {0, 1}},
                              {"two lines, a margin", lines({{0, 2}, {5, 1}}), {0, 1}, {0}},
                              {"lines of the best", lines({{.009, 2}, {0, 1024}, {.02, 2}}), {0, 1, 2}, {0, 1}},
                              {"first of equals", lines({{0, 2}, {0, 1024}, {.009, 2}}), {0, 1, 2}, {0, 1}},
                              {"larger margin", lines({{.01, 1024}, {.015, 2}, {.03, 2}}), {0, 1, 2}, {0, 1}},
                              {"no table", lines({{infinity, 9}, {infinity, 9}}), {1, 0}, {1, 0}},
                              {"none", {}, {}, {}}});
}

TEST(QualityRules, ClassValue) {
    const Valuations of_25 = classes({{1, 1, 0, 0, 0}, {9, 0, 0, 8, 0}, {24, 0, 0, 0, 0}});
    const Valuations of_10 = classes({{1, 0, 1, 0, 0}, {4, 0, 0, 3, 0}, {9, 0, 0, 0, 0}});
    const Valuations of_6 = classes({{4, 0, 0, 2, 1}, {2, 0, 0, 2, 0}, {5, 0, 0, 0, 0}});
    expect_kept(class_value{}, {{"25", of_25, {0, 1, 2}, {0, 1}},
                                {"10", of_10, {0, 1, 2}, {0, 1}},
                                {"6", of_6, {2, 1, 0}, {1, 0}},
                                {"below 0", classes({{2, 0, 0, 0, 2}, {0, 0, 0, 0, 0}}), {0, 1}, {1}},
                                {"none", {}, {}, {}}});
}

TEST(QualityRules, HeaderLines) {
    const Valuations fewest = headers({{0, 2}, {0, 1}, {0, 1}, {.5, 3}});
    expect_kept(header_lines{}, {{"fewest", fewest, {0, 1, 2, 3}, {1, 2}},
                                 {"fewest is no candidate", fewest, {0, 3}, {0}},
                                 {"irregular ties", headers({{0, 1}, {0, 2}, {.5, 1}}), {0, 1, 2}, {0}},
                                 {"irregular wins", headers({{0, 2}, {0, 1}, {.5, 0}}), {0, 1, 2}, {0, 1, 2}},
                                 {"first irregular", headers({{.5, 0}, {0, 1}}), {0, 1}, {0, 1}},
                                 {"none", {}, {}, {}}});
}

TEST(QualityRules, PriorsRank) {
    expect_kept(priors_rank{}, {{"lowest", ranks({{2}, {0}, {3.5}}), {0, 1, 2}, {1}},
                                {"first of equals", ranks({{3.5}, {3.5}}), {1, 0}, {1}},
                                {"uncommon", ranks({{4}, {infinity}}), {0, 1}, {0, 1}},
                                {"none", {}, {}, {}}});
}

} // namespace
