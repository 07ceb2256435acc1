/// \file
/// The search for candidates, watched.
#pragma once

#include "textio/decision_observer.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"

#include <memory>
#include <vector>

namespace textio::detection {

/// What `get_candidate_strategies` gives. `observer` is told of each layout tried.
std::vector<std::shared_ptr<GenericStrategy>>
find_candidates(const FieldArray& line_sample, const parser::options& options,
                const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                output::DetectionOutputBuilder& builder, DecisionObserver& observer);

} // namespace textio::detection
