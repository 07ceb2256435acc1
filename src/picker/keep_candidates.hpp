/// \file
/// What the rules have in common: they keep some candidates, or all if none would be left.
#pragma once

#include "textio/strategy_valuation.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

namespace textio::detection::picker_rules {

/// The candidates whose valuation satisfies `keeps`, in their given order; all if none does.
template <typename Predicate>
[[nodiscard]] std::vector<std::size_t> keep_if(const std::vector<std::size_t>& candidates,
                                               const std::vector<StrategyValuation>& values,
                                               Predicate keeps) {
    std::vector<std::size_t> kept;
    kept.reserve(candidates.size());
    for (const std::size_t candidate : candidates) {
        if (keeps(values[candidate])) {
            kept.push_back(candidate);
        }
    }
    if (kept.empty()) {
        kept = candidates;
    }
    return kept;
}

/// Compares two candidates by their `figure`.
template <typename Figure>
[[nodiscard]] auto by(const std::vector<StrategyValuation>& values, Figure figure) {
    return [&values, figure](std::size_t left, std::size_t right) {
        return std::invoke(figure, values[left]) < std::invoke(figure, values[right]);
    };
}

/// The candidate with the lowest `figure`, the first of equals. There must be a candidate.
template <typename Figure>
[[nodiscard]] std::size_t first_lowest(const std::vector<std::size_t>& candidates,
                                       const std::vector<StrategyValuation>& values,
                                       Figure figure) {
    return *std::min_element(candidates.begin(), candidates.end(), by(values, figure));
}

/// The candidates that share the highest `figure`, in their given order.
template <typename Figure>
[[nodiscard]] std::vector<std::size_t> keep_highest(const std::vector<std::size_t>& candidates,
                                                    const std::vector<StrategyValuation>& values,
                                                    Figure figure) {
    if (candidates.empty()) {
        return {};
    }
    const std::size_t best =
        *std::max_element(candidates.begin(), candidates.end(), by(values, figure));
    const auto highest = std::invoke(figure, values[best]);
    return keep_if(candidates, values, [&](const StrategyValuation& valuation) {
        return std::invoke(figure, valuation) == highest;
    });
}

} // namespace textio::detection::picker_rules
