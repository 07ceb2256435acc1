#pragma once

#include "settings.hpp"
#include "textio/field.hpp"
#include "textio/strategy_valuation.hpp"

#include <string>
#include <vector>

namespace detect_layout {

/// A layout that was tried.
struct ExplainedCandidate {
    std::string layout;               ///< in words
    textio::StrategyValuation values; ///< what the text looked like under it
    std::string verdict;              ///< what became of it
};

/// How the decision for a layout came about.
struct Explanation {
    std::vector<ExplainedCandidate> candidates;
    std::string outcome; ///< what decided, in words
};

/// Takes the decision about `text` once more, and tells how it came about.
[[nodiscard]] Explanation explain(const textio::Field& text, const Settings& settings);

/// The candidates as a table, below it the outcome. Lines that end with a line feed.
[[nodiscard]] std::string draw_table(const Explanation& explanation);

} // namespace detect_layout
