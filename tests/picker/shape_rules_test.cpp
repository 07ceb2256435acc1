#include "picker/rule_cases.hpp"

namespace {

using namespace textio::detection::picker_rules;
using Valuation = textio::StrategyValuation;

constexpr auto variables = valued<&Valuation::num_variables>;
constexpr auto temporals = valued<&Valuation::temporal_variables, &Valuation::datetime_variables>;
constexpr auto shares = valued<&Valuation::classified_variables, &Valuation::num_variables>;

TEST(ShapeRules, Keep) {
    expect_kept(numvariables{3}, {{"matches in the given order", variables({{3}, {4}, {3}}), {2, 1, 0}, {2, 0}},
                                  {"no nearest match", variables({{2}, {4}}), {0, 1}, {0, 1}},
                                  {"none", {}, {}, {}}});
    expect_kept(dates{}, {{"any", temporals({{0, 0}, {1, 0}, {0, 2}}), {0, 1, 2}, {1, 2}}});
    expect_kept(non_empty{}, {{"all", shares({{3, 3}, {2, 4}, {4, 4}}), {0, 1, 2}, {0, 2}},
                              {"largest share", shares({{1, 3}, {1, 2}}), {0, 1}, {1}},
                              {"equal", shares({{2, 3}, {4, 6}, {1, 2}}), {2, 1, 0}, {1, 0}},
                              {"best is no candidate", shares({{1, 3}, {3, 3}}), {0}, {0}},
                              {"none", {}, {}, {}}});
}

} // namespace
