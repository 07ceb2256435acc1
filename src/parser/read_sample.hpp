/// \file
/// The one way in which a strategy gets its sample.
#pragma once

#include "textio/field.hpp"
#include "textio/strategy.hpp"

#include <memory>

namespace textio::parser {

/// Reads the text of `builder` from its start under the options of `strategy`, hands the sample
/// over to it and, with `value_it`, has it valued. Reads the rows that `builder` asks for and,
/// where the strategy's header is fixed, the header's on top. Does nothing at all for a strategy
/// that has its sample. Throws what the read or the valuation throws; the strategy is then without
/// a sample.
void read_sample(output::DetectionOutputBuilder& builder, std::shared_ptr<GenericStrategy> strategy,
                 bool value_it);

} // namespace textio::parser
