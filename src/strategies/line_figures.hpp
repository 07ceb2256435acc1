/// \file
/// The part of a valuation that looks at no text.
#pragma once

#include "textio/strategy.hpp"
#include "textio/strategy_valuation.hpp"

#include <cstddef>
#include <vector>

namespace textio {

/// What the lines of a sample alone say about its layout: how regular they are, how many of them
/// are the header, and how many columns there are. Where that rules a layout out, nobody has to ask
/// for the classes of its columns.
struct LineFigures {
    /// Measures the sample of `strategy`, which is not changed.
    explicit LineFigures(const GenericStrategy& strategy);

    /// Completes the valuation of the strategy that was measured and has not been changed since. If
    /// memory runs out on the way, nothing is settled.
    StrategyValuation& settle(GenericStrategy& strategy) const;

    StrategyValuation record;    ///< that of the strategy, with the figures of the lines filled in
    bool has_data_lines = false; ///< some of the lines are no header
};

// Each takes a header in entries of `diffs`, or lines, from the record, and gives the next figure.

/// The header, which is found if it is undecided.
std::size_t decided_header(const StrategyValuation& record, const std::vector<std::size_t>& diffs,
                           std::size_t h_min, bool is_space_separated);

/// The mean of `diffs` behind the header; infinity when the header takes up all of them.
double variation_behind_header(const StrategyValuation& record,
                               const std::vector<std::size_t>& diffs);

/// The most fields on a line behind the header, at least 1.
std::size_t most_fields(const std::vector<std::size_t>& counts, std::size_t header_lines);

} // namespace textio
