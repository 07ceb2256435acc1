#include "textio/rules.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <tuple>

namespace {

using namespace textio::detection;
using namespace textio::detection::picker_rules;
using Valuation = textio::StrategyValuation;
using Valuations = std::vector<Valuation>;
using Candidates = std::vector<std::size_t>;

constexpr double infinity = std::numeric_limits<double>::infinity();

/// One valuation per row; a row gives the `members` in their order.
template <auto... members>
Valuations valued(std::initializer_list<std::array<double, sizeof...(members)>> rows) {
    Valuations values(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double* figure = rows.begin()[i].data();
        const auto set = [&figure](auto& member) { member = static_cast<std::remove_reference_t<decltype(member)>>(*figure++); };
        (set(values[i].*members), ...);
    }
    return values;
}

constexpr auto variables = valued<&Valuation::num_variables>;
constexpr auto temporals = valued<&Valuation::temporal_variables, &Valuation::datetime_variables>;
constexpr auto shares = valued<&Valuation::classified_variables, &Valuation::num_variables>;
constexpr auto lines = valued<&Valuation::data_variation, &Valuation::num_lines>;
constexpr auto classes = valued<&Valuation::classified_variables, &Valuation::datetime_variables, &Valuation::temporal_variables,
                                &Valuation::numeric_variables, &Valuation::punctuation_variables>;
constexpr auto headers = valued<&Valuation::data_variation, &Valuation::header_lines>;
constexpr auto ranks = valued<&Valuation::prior_rank>;

TEST(Rules, KeepSomeOrAll) {
    const numvariables by_count(3);
    const dates by_dates;
    const variation by_variation;
    const class_value by_class_value;
    const header_lines by_header_lines;
    const non_empty by_share;
    const priors_rank by_rank;
    const Rule without_choice;
    const Valuations irregular = lines({{.5, 256}, {.549, 9}, {.551, 9}, {infinity, 9}});
    const Valuations of_25 = classes({{1, 1, 0, 0, 0}, {9, 0, 0, 8, 0}, {24, 0, 0, 0, 0}});
    const Valuations of_10 = classes({{1, 0, 1, 0, 0}, {4, 0, 0, 3, 0}, {9, 0, 0, 0, 0}});
    const Valuations of_6 = classes({{4, 0, 0, 2, 1}, {2, 0, 0, 2, 0}, {5, 0, 0, 0, 0}});
    const Valuations untidy = headers({{0, 2}, {0, 1}, {0, 1}, {.5, 3}});
    const std::vector<std::tuple<const char*, const Rule&, Valuations, Candidates, Candidates>> cases{
        {"matches in the given order", by_count, variables({{3}, {4}, {3}}), {2, 1, 0}, {2, 0}},
        {"no nearest match", by_count, variables({{2}, {4}}), {0, 1}, {0, 1}},
        {"any date", by_dates, temporals({{0, 0}, {1, 0}, {0, 2}}), {0, 1, 2}, {1, 2}},
        {"a tenth of the best", by_variation, irregular, {0, 1, 2, 3}, {0, 1}},
        {"the steadiest is no candidate", by_variation, irregular, {3, 2}, {2}},
        {"at the margin", by_variation, lines({{0, 1024}, {.009, 9}, {.01, 9}}), {0, 1, 2}, {0, 1}},
        {"one line, no margin", by_variation, lines({{0, 1}, {5, 1}}), {0, 1}, {0, 1}},
        {"two lines, a margin", by_variation, lines({{0, 2}, {5, 1}}), {0, 1}, {0}},
        {"lines of the best", by_variation, lines({{.009, 2}, {0, 1024}, {.02, 2}}), {0, 1, 2}, {0, 1}},
        {"lines of the first of equals", by_variation, lines({{0, 2}, {0, 1024}, {.009, 2}}), {0, 1, 2}, {0, 1}},
        {"larger margin", by_variation, lines({{.01, 1024}, {.015, 2}, {.03, 2}}), {0, 1, 2}, {0, 1}},
        {"no table", by_variation, lines({{infinity, 9}, {infinity, 9}}), {1, 0}, {1, 0}},
        {"25 for dates with times", by_class_value, of_25, {0, 1, 2}, {0, 1}},
        {"10 for other times", by_class_value, of_10, {0, 1, 2}, {0, 1}},
        {"3 for numbers, -1 for punctuation", by_class_value, of_6, {2, 1, 0}, {1, 0}},
        {"below 0", by_class_value, classes({{2, 0, 0, 0, 2}, {0, 0, 0, 0, 0}}), {0, 1}, {1}},
        {"fewest header lines", by_header_lines, untidy, {0, 1, 2, 3}, {1, 2}},
        {"the fewest are no candidate", by_header_lines, untidy, {0, 3}, {0}},
        {"as few in an irregular one", by_header_lines, headers({{0, 1}, {0, 2}, {.5, 1}}), {0, 1, 2}, {0}},
        {"fewest in an irregular one", by_header_lines, headers({{0, 2}, {0, 1}, {.5, 0}}), {0, 1, 2}, {0, 1, 2}},
        {"the first is irregular", by_header_lines, headers({{.5, 0}, {0, 1}}), {0, 1}, {0, 1}},
        {"all classified", by_share, shares({{3, 3}, {2, 4}, {4, 4}}), {0, 1, 2}, {0, 2}},
        {"equal shares", by_share, shares({{2, 3}, {4, 6}, {1, 2}}), {2, 1, 0}, {1, 0}},
        {"the fullest is no candidate", by_share, shares({{1, 3}, {3, 3}}), {0}, {0}},
        {"lowest rank", by_rank, ranks({{2}, {0}, {3.5}}), {0, 1, 2}, {1}},
        {"first of equals", by_rank, ranks({{3.5}, {3.5}}), {1, 0}, {1}},
        {"uncommon", by_rank, ranks({{4}, {infinity}}), {0, 1}, {0, 1}},
        {"no choice of its own", without_choice, Valuations(1), {0}, {}},
    };
    for (const auto& [name, rule, values, candidates, kept] : cases) {
        EXPECT_EQ(rule.reduce(candidates, values), kept) << name;
        EXPECT_EQ(rule.reduce({}, {}), Candidates()) << name << ", nobody";
    }
}

TEST(ClassicRules, EachRuleDecidesBeforeTheNext) {
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
        {"one prior of several", rows({{4, 0, 0, 9, 3, 1, 4, 0}, {4, 0, 0, 9, 3, 1, 4, 3}, {2, 0, 1.5, 9, 0, 1, 2, 2}}), 0, 0, 0},
    };
    for (const auto& [name, valuations, any, three, without_header] : cases) {
        Valuations values = valuations;
        EXPECT_EQ(ClassicRules(true, 3, true).pick(values), any) << name;
        EXPECT_EQ(ClassicRules(false, 3, true).pick(values), three) << name;
        EXPECT_EQ(ClassicRules(true, 3, false).pick(values), without_header) << name;
    }
}

TEST(ClassicRules, TellWhichRulesWereAskedAndWhatTheyKept) {
    const ClassicRules chain(false, 3, true);
    const auto told = [&chain](Valuations values) {
        std::string words;
        const int picked = chain.pick(values, [&words](const Rule& rule, const Candidates& before, const Candidates& after) {
            words += std::string(rule.name()) + " " + std::to_string(before.size()) + std::to_string(after.size()) + ", ";
        });
        return words + std::to_string(picked);
    };
    constexpr auto rows = valued<&Valuation::num_variables, &Valuation::classified_variables, &Valuation::prior_rank>;
    EXPECT_EQ(told(Valuations(1)), "0"); // one needs no rule
    EXPECT_EQ(told(rows({{2, 0, 0}, {3, 0, 1}})), "expected variables 21, 1");
    EXPECT_EQ(told(rows({{3, 1, 4}, {3, 1, 4}, {2, 1, 4}})),
              "expected variables 32, dates 22, regular lines 22, kinds of values 22, short header 22, "
              "filled columns 22, usual delimiter 22, -2");
}

} // namespace
