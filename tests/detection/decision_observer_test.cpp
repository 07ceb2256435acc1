#include "support/text.hpp"
#include "textio/candidates.hpp"
#include "textio/decision_observer.hpp"
#include "textio/strategy_selector.hpp"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace {

using namespace textio;
using detection::Ground;
using detection::Trial;
using Types = zentor::io::text::typedetection::TypeAnalyzerOptions;

/// Tells what it is told, in words.
class Teller : public detection::DecisionObserver {
public:
    void tried(GenericStrategy& strategy, Trial trial) override {
        constexpr std::array ends{"", "", " is irregular", " is worse than aligned", " is worse than columns"};
        const std::string name = test::shown(strategy);
        told += name.substr(0, name.find(", ")) + ends.at(static_cast<std::size_t>(trial)) + "\n";
        if (trial == Trial::compared) {
            valuations.push_back(strategy.valuation_record());
        }
    }

    void ruled(const detection::picker_rules::Rule& rule, const std::vector<std::size_t>& before,
               const std::vector<std::size_t>& after) override {
        if (after.size() < before.size()) {
            told +=
                std::string(rule.name()) + ": " + std::to_string(before.size()) + " to " + std::to_string(after.size()) + "\n";
        }
    }

    void decided(GenericStrategy& strategy, Ground ground) override {
        constexpr std::array grounds{"dates", "no lines", "no candidate", "alone", "rules", "not separated"};
        const std::string name = test::shown(strategy);
        told += name.substr(0, name.find(", ")) + ": " + grounds.at(static_cast<std::size_t>(ground));
        answer = &strategy;
    }

    std::string told;
    std::vector<StrategyValuation> valuations; ///< of what is compared
    const GenericStrategy* answer = nullptr;
};

const std::u16string padded = u"name   age\nAnn     41\nBob B.   7\nCleo    12\n";

TEST(DecisionObserver, IsToldEachStep) {
    const parser::options fixed{.layout_hint = parser::layout::fixed_width};
    const parser::options with_widths{.layout_hint = parser::layout::fixed_width, .field_widths = {4, 6}};
    const parser::options without_data{
        .layout_hint = parser::layout::fixed_width, .header_lines = 9, .detect_header_lines = false};
    const struct {
        const char* name;
        std::u16string text;
        std::string told;
        parser::options options{};
    } cases[] = {
        {"nothing", u"", "lines\nlines: no lines"},
        {"dates", u"2020-01-02\n2020-01-03\n", "lines\nby ',': dates"},
        {"no candidate", u"alpha\nbeta\n", "lines\nlines: no candidate"},
        {"one candidate", u"1;2\n3;4\n", "lines\nby ';'\nby ';': alone"},
        {"an unusual delimiter on a lone line", u"a:b\n", "lines\nby ':' is irregular\nlines: no candidate"},
        {"excluded", u"1;2,3\n3;4,5\n", "lines\nby ','\nby ',': alone", {.excluded_delimiter = u";"}},
        {"an irregular layout", u"1;a\n2;b,,,,,,,,\n3;c\n4;d,,,,,,,,\n5;e\n6;f\n",
         "lines\nby ';'\nby ',' is irregular\nby ';': alone"},
        {"a rule decides", u"a,b;c\nd,e;f\ng,h;i,j\nk;l,m\n", "lines\nby ','\nby ';'\nregular lines: 2 to 1\nby ';': rules"},
        {"two rules", u"a:1|c;1\nd:2|f;2\ng:3|i;3\n", "lines\nby ':'\nby '|'\nby ';'\nkinds of values: 3 to 1\nby ';': rules"},
        {"no rule decides", u"a:b=c\nd:e=f\ng:h=i\n", "lines\nby ':'\nby '='\nby ',': not separated"},
        {"columns for blanks", padded,
         "lines\naligned is worse than columns\nwidths 6 4\nby ' ' is worse than aligned\nwidths 6 4: alone"},
        {"only columns", padded, "lines\naligned is worse than columns\nwidths 6 4\nwidths 6 4: alone", fixed},
        {"given columns", padded, "lines 4 6\nwidths 4 6\nwidths 4 6: alone", with_widths},
        {"columns of no lines", padded, "lines\nwidths 1\nwidths 1: alone", without_data},
        {"aligned", u"1  2   3\n10 20 30\n 4   5 6\n", "lines\naligned\nby ' ' is worse than aligned\naligned: alone"},
    };
    for (const auto& c : cases) {
        const Types types;
        detection::StrategySelector selector(c.options, types);
        Teller teller;
        const auto answer = selector.pick_strategy(Field(c.text), 99, teller);
        EXPECT_EQ(teller.told, c.told) << c.name;
        EXPECT_EQ(teller.answer, answer.get()) << c.name;
        EXPECT_EQ(test::shown(*answer), test::shown(*selector.pick_strategy(Field(c.text), 99))) << c.name;
    }
}

/// What the chain decides over is what was told, in the order told.
TEST(DecisionObserver, IsToldTheCandidatesThatAreCompared) {
    const std::u16string units = u"a:1|c;1\nd:2|f;2\ng:3|i;3\n";
    const Field text(units);
    const parser::options options;
    const Types types;
    Teller teller;
    const auto answer = detection::StrategySelector(options, types).pick_strategy(text, 99, teller);
    const detection::ClassicRules rules(true, 0, true);
    const int picked = rules.pick(teller.valuations);
    ASSERT_GE(picked, 0);
    EXPECT_EQ(teller.valuations[static_cast<std::size_t>(picked)].prior_rank, answer->valuation_record().prior_rank);
}

TEST(DecisionObserver, CanEndADecisionByThrowing) {
    class : public detection::DecisionObserver {
        void tried(GenericStrategy& /*strategy*/, Trial trial) override {
            if (trial == Trial::compared) {
                throw std::runtime_error("enough");
            }
        }
    } impatient;
    const std::u16string text = u"1;2\n3;4\n";
    const parser::options options;
    const Types types;
    detection::StrategySelector selector(options, types);
    EXPECT_THROW(selector.pick_strategy(Field(text), 99, impatient), std::runtime_error);
    EXPECT_EQ(test::shown(*selector.pick_strategy(Field(text), 99)), "by ';', header 0, 2 variables");
}

} // namespace
