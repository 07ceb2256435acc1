/// \file
/// How the layouts worth comparing are found: candidate delimiters, fixed-width columns, and the
/// layout to fall back on. A host that only wants to show why a layout won takes a
/// `DecisionObserver`.
#pragma once

#include "textio/export.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"
#include "textio/strategy.hpp"
#include "textio/strategy_valuation.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace textio::detection {

/// Appends to `delims` the units of `line` that can be delimiters and are not in it yet: ASCII
/// other than letters, digits, quotes, brackets, signs, `$`, `@` and line endings.
TEXTIO_EXPORT void add_delims_from_line(const Field& line, std::u16string& delims);

/// The candidate delimiters of a sample read as one field per line, in order of appearance. Only
/// the middle of the sample is looked at, so that headers and footers give no candidates.
TEXTIO_EXPORT std::u16string get_candidate_delims(const FieldArray& lines);

/// Reads and values `strategy` unless that has been done, and appends it to `candidates` if its
/// lines are regular enough to be compared. Gives whether it was appended.
TEXTIO_EXPORT bool
add_possible_strategy(std::shared_ptr<GenericStrategy> strategy,
                      std::vector<std::shared_ptr<GenericStrategy>>& candidates,
                      const parser::options& options,
                      const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                      output::DetectionOutputBuilder& builder);

/// All layouts worth comparing, read and valued. `line_sample` is the text read as one field per
/// line, without empty lines at its end. The text itself is taken from `builder`; `text` is not
/// looked at.
TEXTIO_EXPORT std::vector<std::shared_ptr<GenericStrategy>>
get_candidate_strategies(const FieldArray& line_sample, const Field& text,
                         const parser::options& options,
                         const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                         output::DetectionOutputBuilder& builder);

/// Looks for columns that are blank on every line of `line_sample`, and appends either a
/// fixed-width strategy with the columns found or, where that explains the text no better,
/// `space_candidate`, which must have been read. `text` is not looked at: a strategy with columns
/// is read from the text of `builder`.
TEXTIO_EXPORT void add_possible_fixed_strategy(
    std::shared_ptr<GenericStrategy> space_candidate, const Field& text,
    const FieldArray& line_sample, std::vector<std::shared_ptr<GenericStrategy>>& candidates,
    const parser::options& options,
    const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
    output::DetectionOutputBuilder& builder);

/// The header of a fixed-width text, in lines: that of `strategy`, less the lines just above the
/// data that are exactly as long as the first data line. A count at or past the last line, or one
/// that is not to be detected, is given back unchanged.
TEXTIO_EXPORT std::size_t detect_header_lines_fixed_width(std::shared_ptr<GenericStrategy> strategy,
                                                          const FieldArray& line_sample,
                                                          const parser::options& options);

/// The mean absolute distance of `values` from their modified median, which is stored in `median`.
/// Of no values, not a number, with the median 1.
TEXTIO_EXPORT double mad(const std::vector<std::size_t>& values, int& median);

/// Whether a fixed-width reading with these figures is to be preferred to a space-aligned one.
TEXTIO_EXPORT bool
isFixedWidthStrategyBetterThanSpaceAlignedStrategy(StrategyValuation fixed,
                                                   StrategyValuation space_aligned);

/// The answer when nothing else will do: comma-delimited, without header, read but not valued. The
/// text and the rows to read are taken from `builder`.
TEXTIO_EXPORT std::shared_ptr<GenericStrategy>
fallback_strategy(const parser::options& options,
                  const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                  const Field& text, std::size_t sample_lines,
                  output::DetectionOutputBuilder& builder);

} // namespace textio::detection
