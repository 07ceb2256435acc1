/// \file
/// The steps from a text read as one field per line to one read as columns.
#pragma once

#include "textio/decision_observer.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"

#include <cstddef>
#include <memory>
#include <vector>

namespace textio::detection {

/// The columns that lines show, and how their number fell as more and more lines were taken in: one
/// entry per line.
struct FixedColumns {
    std::vector<std::size_t> widths; ///< in code units
    std::vector<std::size_t> column_counts;
};

/// `header_lines` without the lines just above the data that are exactly as long as the first data
/// line, if the header is to be detected and leaves a line.
std::size_t without_data_lines(std::size_t header_lines, const FieldArray& line_sample,
                               const parser::options& options);

/// The columns that the lines from `first_line` on show. Lines that lie in the text of `builder`
/// are looked at faster.
FixedColumns find_fixed_columns(const FieldArray& line_sample, std::size_t first_line,
                                const output::DetectionOutputBuilder& builder);

/// A strategy for columns of these widths, or one of a unit if there are none, read and valued.
std::shared_ptr<GenericStrategy>
read_fixed_columns(std::vector<std::size_t> widths, std::size_t header_lines,
                   const parser::options& options,
                   const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                   output::DetectionOutputBuilder& builder);

/// A fixed-width strategy with the columns that are blank on every line of `line_sample` between
/// them or, where that explains the text no better, `aligned`, which must have been read. If
/// `aligned` is given up, `observer` is told; of the strategy given back it is not.
std::shared_ptr<GenericStrategy>
columns_or_aligned(std::shared_ptr<GenericStrategy> aligned, const FieldArray& line_sample,
                   const parser::options& options,
                   const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                   output::DetectionOutputBuilder& builder, DecisionObserver& observer);

} // namespace textio::detection
