/// \file
/// Ranks readings, and proposes the best of them.
#pragma once

#include "advice/proposing.hpp"
#include "advice/reading.hpp"
#include "textio/advice.hpp"

#include <vector>

namespace textio::advice {

/// Proposes the best of `readings`, of which there must be one.
[[nodiscard]] Advice rank(std::vector<Reading> readings, const ProposalSources& sources);

} // namespace textio::advice
