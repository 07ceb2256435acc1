#include "picker/rule_cases.hpp"

namespace {

using namespace textio::detection::picker_rules;
using V = textio::StrategyValuation;

constexpr auto variables = valued<&V::num_variables>;
constexpr auto temporals = valued<&V::temporal_variables, &V::datetime_variables>;
constexpr auto shares = valued<&V::classified_variables, &V::num_variables>;

TEST(ShapeRules, Keep) {
    expect_kept(numvariables{3},
                {{"matches in the given order", variables({{3}, {4}, {3}}), {2, 1, 0}, {2, 0}},
                 {"no nearest match", variables({{2}, {4}}), {0, 1}, {0, 1}},
                 {"none", {}, {}, {}}});
    expect_kept(dates{}, {{"any", temporals({{0, 0}, {1, 0}, {0, 2}}), {0, 1, 2}, {1, 2}},
                          {"no dates", temporals({{0, 0}, {0, 0}}), {0, 1}, {0, 1}}});
    expect_kept(non_empty{}, {{"all", shares({{3, 3}, {2, 4}, {4, 4}}), {0, 1, 2}, {0, 2}},
                              {"largest share", shares({{1, 3}, {1, 2}}), {0, 1}, {1}},
                              {"equal", shares({{2, 3}, {4, 6}, {1, 2}}), {2, 1, 0}, {1, 0}},
                              {"nothing", shares({{0, 3}, {0, 1}}), {0, 1}, {0, 1}},
                              {"best is no candidate", shares({{1, 3}, {3, 3}}), {0}, {0}},
                              {"none", {}, {}, {}}});
}

} // namespace
