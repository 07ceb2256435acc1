/// \file
/// The part of a valuation that looks at no text.
#pragma once

#include "textio/strategy.hpp"
#include "textio/strategy_valuation.hpp"

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

} // namespace textio
