/// \file
/// What the rules have in common: they keep some candidates, or all if none would be left.
#pragma once

#include "textio/strategy_valuation.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <type_traits>
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
        if (std::invoke(keeps, values[candidate])) {
            kept.push_back(candidate);
        }
    }
    if (kept.empty()) {
        kept = candidates;
    }
    return kept;
}

/// The candidate with the lowest `figure`, the first of equals. There must be a candidate.
template <typename Figure>
[[nodiscard]] std::size_t first_lowest(const std::vector<std::size_t>& candidates,
                                       const std::vector<StrategyValuation>& values,
                                       Figure figure) {
    return *std::min_element(
        candidates.begin(), candidates.end(), [&](std::size_t left, std::size_t right) {
            return std::invoke(figure, values[left]) < std::invoke(figure, values[right]);
        });
}

/// The candidates that share the highest `figure`, in their given order. Each figure is worked out
/// once and stored, so that equal ones compare equal on a machine that calculates with more digits
/// than it stores.
template <typename Figure>
[[nodiscard]] std::vector<std::size_t> keep_highest(const std::vector<std::size_t>& candidates,
                                                    const std::vector<StrategyValuation>& values,
                                                    Figure figure) {
    std::vector<std::invoke_result_t<Figure, const StrategyValuation&>> figures;
    figures.reserve(candidates.size());
    for (const std::size_t candidate : candidates) {
        figures.push_back(std::invoke(figure, values[candidate]));
    }
    const auto highest = std::max_element(figures.begin(), figures.end());
    std::vector<std::size_t> kept;
    kept.reserve(candidates.size());
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        if (figures[i] == *highest) {
            kept.push_back(candidates[i]);
        }
    }
    if (kept.empty()) {
        kept = candidates;
    }
    return kept;
}

} // namespace textio::detection::picker_rules
