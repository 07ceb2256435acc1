/// \file
/// How a host watches a decision being taken, for instance to explain it.
#pragma once

#include "textio/export.hpp"
#include "textio/rules.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace textio::detection {

/// What becomes of a layout that was tried.
enum class Trial : std::uint8_t {
    shows_candidates,   ///< one field per line: what else is tried depends on its sample
    compared,           ///< a candidate: one of those that are compared
    irregular,          ///< refused: irregular lines, or a single line with an unusual delimiter
    worse_than_aligned, ///< refused: each blank ends a field, but columns of blanks explain more
    worse_than_columns, ///< aligned with blanks, and given up for columns of fixed width
};

/// Why the answer is the answer.
enum class Ground : std::uint8_t {
    lines_are_dates, ///< whole lines are dates or durations: the layout to fall back on
    no_lines,        ///< there is nothing to look at: one field per line
    no_candidate,    ///< no layout could be compared: one field per line
    only_candidate,  ///< there was one candidate, and no rule was asked
    rules,           ///< the rules left one candidate
    not_separated,   ///< the rules left more than one candidate: the layout to fall back on
};

/// Is told of a decision step by step, in the order in which it is taken. This base does nothing; a
/// host overrides what it wants to know. What is handed over is valid during the call. A strategy
/// that has not been valued may be valued in it, and must not be changed otherwise. What an
/// observer throws ends the decision.
///
/// The order of calls:
///
///     tried { tried } { ruled } decided
class TEXTIO_EXPORT DecisionObserver {
public:
    DecisionObserver() = default;
    DecisionObserver(const DecisionObserver&) = delete;
    DecisionObserver& operator=(const DecisionObserver&) = delete;
    virtual ~DecisionObserver();

    /// A layout was tried: its sample has been read, and what becomes of it is settled. Candidates
    /// have been valued, and come in the order of the indexes that the rules know them by.
    virtual void tried(GenericStrategy& strategy, Trial trial);

    /// A rule was asked to choose among the candidates `before` and kept those of `after`.
    virtual void ruled(const picker_rules::Rule& rule, const std::vector<std::size_t>& before,
                       const std::vector<std::size_t>& after);

    /// The decision is taken. The layout to fall back on has been read and not been valued.
    virtual void decided(GenericStrategy& answer, Ground ground);
};

} // namespace textio::detection
