/// \file
/// The kind of value that each column of a sample holds.
#pragma once

#include "textio/field.hpp"
#include "textio/strategy_valuation.hpp"
#include "textio/type_analyzer.hpp"

#include <vector>

namespace textio {

/// The classes of the columns that `record` counts: each has that of the last value that says
/// anything, on lines with the typical number of fields behind the first line of data. The cost is
/// linear in the fields of the sample.
std::vector<zentor::io::text::typedetection::FieldClass>
find_column_classes(const FieldArray& sample,
                    const zentor::io::text::typedetection::TypeAnalyzer<false>& analyzer,
                    const StrategyValuation& record);

/// Adds `classes` to the counters of `record`.
void count_classes(const std::vector<zentor::io::text::typedetection::FieldClass>& classes,
                   StrategyValuation& record) noexcept;

} // namespace textio
