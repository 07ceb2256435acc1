#include "detection/fixed_width_candidates.hpp"

#include "detection/blank_columns.hpp"
#include "detection/line_sample.hpp"
#include "parser/read_sample.hpp"
#include "textio/candidates.hpp"
#include "textio/statistics.hpp"

#include <limits>
#include <span>
#include <utility>

namespace textio::detection {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

/// The valuation that a fixed-width reading would have, without making one.
StrategyValuation expected_valuation(const std::vector<std::size_t>& column_counts) {
    StrategyValuation valuation;
    valuation.num_variables = column_counts.back();
    valuation.data_variation = mad(column_counts, valuation.median_fields);
    return valuation;
}

std::size_t distance(std::size_t value, std::size_t from) {
    return value > from ? value - from : from - value;
}

} // namespace

std::size_t without_data_lines(std::size_t header_lines, const FieldArray& line_sample,
                               const parser::options& options) {
    if (!options.detect_header_lines || header_lines >= line_sample.line_count()) {
        return header_lines;
    }
    const std::size_t data_length = line_length(line_sample, header_lines);
    while (header_lines > 0 && line_length(line_sample, header_lines - 1) == data_length) {
        --header_lines;
    }
    return header_lines;
}

FixedColumns find_fixed_columns(const FieldArray& line_sample, std::size_t first_line,
                                const output::DetectionOutputBuilder& builder) {
    const std::size_t lines = line_sample.line_count();
    if (first_line >= lines) {
        return {{}, {1}};
    }
    FixedColumns found;
    found.column_counts.reserve(lines - first_line);
    BlankColumns columns(line_length(line_sample, first_line),
                         builder.text == nullptr ? Field() : *builder.text);
    std::size_t column_count = 0;
    for (std::size_t line = first_line; line < lines; ++line) {
        const std::span<const Field> fields = line_sample.line(line);
        if (const std::size_t length = length_of(fields); length != 0) {
            columns.add_line(fields.front(), length);
            column_count = columns.columns();
        }
        found.column_counts.push_back(column_count);
    }
    found.widths = columns.widths();
    return found;
}

std::shared_ptr<GenericStrategy> read_fixed_columns(std::vector<std::size_t> widths,
                                                    std::size_t header_lines,
                                                    const parser::options& options,
                                                    const TypeAnalyzerOptions& type_options,
                                                    output::DetectionOutputBuilder& builder) {
    if (widths.empty()) {
        widths = {1};
    }
    auto strategy = std::make_shared<FixedWidthStrategy>(options, type_options, std::move(widths));
    strategy->header_lines(header_lines);
    parser::read_sample(builder, strategy, true);
    return strategy;
}

std::size_t detect_header_lines_fixed_width(std::shared_ptr<GenericStrategy> strategy,
                                            const FieldArray& line_sample,
                                            const parser::options& options) {
    return without_data_lines(strategy->header_lines(), line_sample, options);
}

double mad(const std::vector<std::size_t>& values, int& median) {
    const std::size_t centre = modified_median(values.begin(), values.end());
    median = static_cast<int>(centre);
    if (values.empty()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    std::uint64_t sum = 0;
    for (const std::size_t value : values) {
        sum += distance(value, centre);
    }
    return static_cast<double>(sum) / static_cast<double>(values.size());
}

bool isFixedWidthStrategyBetterThanSpaceAlignedStrategy(StrategyValuation fixed,
                                                        StrategyValuation space_aligned) {
    return space_aligned.num_variables >= fixed.num_variables &&
           space_aligned.data_variation > fixed.data_variation;
}

std::shared_ptr<GenericStrategy>
columns_or_aligned(std::shared_ptr<GenericStrategy> aligned, const FieldArray& line_sample,
                   const parser::options& options, const TypeAnalyzerOptions& type_options,
                   output::DetectionOutputBuilder& builder, DecisionObserver& observer) {
    const bool is_sought = options.layout_hint == parser::layout::fixed_width;
    const StrategyValuation& aligned_value = aligned->valuation();
    if (!is_sought && aligned_value.data_variation == 0) {
        return aligned; // no columns are more regular
    }
    const std::size_t header_lines = detect_header_lines_fixed_width(aligned, line_sample, options);
    FixedColumns found = find_fixed_columns(line_sample, header_lines, builder);
    if (!is_sought && !isFixedWidthStrategyBetterThanSpaceAlignedStrategy(
                          expected_valuation(found.column_counts), aligned_value)) {
        return aligned;
    }
    observer.tried(*aligned, Trial::worse_than_columns);
    aligned.reset(); // the read can use its memory
    return read_fixed_columns(std::move(found.widths), header_lines, options, type_options,
                              builder);
}

void add_possible_fixed_strategy(std::shared_ptr<GenericStrategy> space_candidate,
                                 const Field& /*text*/, const FieldArray& line_sample,
                                 std::vector<std::shared_ptr<GenericStrategy>>& candidates,
                                 const parser::options& options,
                                 const TypeAnalyzerOptions& type_options,
                                 output::DetectionOutputBuilder& builder) {
    DecisionObserver nobody;
    candidates.push_back(columns_or_aligned(std::move(space_candidate), line_sample, options,
                                            type_options, builder, nobody));
}

} // namespace textio::detection
