/// \file
/// The steps from a text read as one field per line to one read as columns.
#pragma once

#include "textio/candidates.hpp"
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

/// The columns that the lines from `first_line` on show. They stand, if anywhere, in the text of
/// `builder`.
FixedColumns find_fixed_columns(const FieldArray& line_sample, std::size_t first_line,
                                const output::DetectionOutputBuilder& builder);

/// A strategy for columns of these widths, or one of a unit if there are none, read and valued.
std::shared_ptr<GenericStrategy>
read_fixed_columns(std::vector<std::size_t> widths, std::size_t header_lines,
                   const parser::options& options,
                   const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                   output::DetectionOutputBuilder& builder);

} // namespace textio::detection
