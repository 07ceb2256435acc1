#pragma once

#include "textio/rules.hpp"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

using Valuations = std::vector<textio::StrategyValuation>;

/// A name, valuations, candidates among them, and those of the candidates that a rule keeps.
using RuleCases = std::vector<std::tuple<const char*, Valuations, std::vector<std::size_t>, std::vector<std::size_t>>>;

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

inline void expect_kept(const textio::detection::picker_rules::Rule& rule, const RuleCases& cases) {
    for (const auto& [name, values, candidates, kept] : cases) {
        EXPECT_EQ(rule.reduce(candidates, values), kept) << typeid(rule).name() << ": " << name;
    }
}
