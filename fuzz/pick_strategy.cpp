// Whole detection runs, and the candidates on the way, under any options.
#include "parser/delimited_reader.hpp"
#include "parser/fixed_width_reader.hpp"
#include "parser/line_reader.hpp"
#include "parser/read_sample.hpp"
#include "samples.hpp"
#include "textio/textio.hpp"

#include <bit>
#include <cmath>
#include <numeric>

namespace {

using namespace textio;
using fuzz::require;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

void check_valuation(const GenericStrategy& strategy) {
    const StrategyValuation& record = strategy.valuation_record();
    require(record.num_lines == strategy.field_array()->line_count(), "all lines were valued");
    require(record.num_variables >= 1, "there is a column");
    require(record.classified_variables <= record.num_variables, "classes belong to columns");
    require(std::uint64_t{record.temporal_variables} + record.numeric_variables +
                    record.datetime_variables + record.punctuation_variables <=
                record.classified_variables,
            "kinds of columns are classes");
    require(record.data_variation >= 0.0 && record.overall_variation >= 0.0,
            "variations are distances");
}

/// The rows that were read for `strategy`.
std::size_t rows_of(const GenericStrategy& strategy, const parser::options& given,
                    std::size_t sample_rows) {
    const parser::options& options = strategy.options();
    std::size_t header = options.detect_header_lines ? 0 : options.header_lines;
    if (strategy.mode() == enums::StrategyMode::line_reader) {
        header = 0;
    } else if (strategy.mode() == enums::StrategyMode::fixed_width &&
               (given.layout_hint != parser::layout::fixed_width || given.field_widths.empty())) {
        header = strategy.auto_header_lines() ? 0 : strategy.header_lines();
    }
    return header > SIZE_MAX - sample_rows ? SIZE_MAX : sample_rows + header;
}

template <class Reader>
FieldArray fresh_reading(const GenericStrategy& strategy, Field text, std::size_t rows) {
    const parser::options& options = strategy.options();
    output::DetectionOutputBuilder builder = fuzz::new_builder(options.whitespace);
    if (strategy.mode() == enums::StrategyMode::fixed_width) {
        builder.limit_fields = true;
        builder.field_limit = options.field_widths.size();
    }
    const Reader reader(options);
    read_records(options, reader, rows, SIZE_MAX, text, builder);
    FieldArray sample = std::move(*builder.field_array);
    const bool was_valued = strategy.num_variables() != SIZE_MAX;
    while (was_valued && !sample.line_ends.empty() &&
           sample.line(sample.line_count() - 1).empty()) {
        sample.line_ends.pop_back();
    }
    return sample;
}

FieldArray read_again(const GenericStrategy& strategy, const Field& text, std::size_t rows) {
    switch (strategy.mode()) {
    case enums::StrategyMode::fixed_width:
        return fresh_reading<parser::FixedWidthRecordReader>(strategy, text, rows);
    case enums::StrategyMode::line_reader:
        return fresh_reading<parser::LineRecordReader>(strategy, text, rows);
    default:
        return fresh_reading<parser::DelimitedRecordReader>(strategy, text, rows);
    }
}

void check_strategy(const GenericStrategy& strategy, const Field& text,
                    const parser::options& options, std::size_t rows) {
    fuzz::check_sample(*strategy.field_array(), text);
    if (strategy.num_variables() != SIZE_MAX) {
        check_valuation(strategy);
    }
    require(fuzz::equal(*strategy.field_array(),
                        read_again(strategy, text, rows_of(strategy, options, rows))),
            "a fresh reading is the same");
}

bool same_figures(const StrategyValuation& left, const StrategyValuation& right) {
    const auto figures = [](const StrategyValuation& v) {
        return std::tuple(std::bit_cast<std::uint64_t>(v.overall_variation),
                          std::bit_cast<std::uint64_t>(v.data_variation), v.num_lines,
                          v.median_fields, v.num_variables, v.classified_variables,
                          v.temporal_variables, v.numeric_variables, v.datetime_variables,
                          v.punctuation_variables, std::bit_cast<std::uint64_t>(v.prior_rank),
                          v.header_lines);
    };
    return figures(left) == figures(right);
}

void check_same(const GenericStrategy& left, const GenericStrategy& right) {
    require(left.mode() == right.mode() && left.header_lines() == right.header_lines() &&
                left.options().delimiters == right.options().delimiters &&
                left.options().field_widths == right.options().field_widths,
            "a second run finds the same layout");
    require(same_figures(left.valuation_record(), right.valuation_record()),
            "a second run finds the same figures");
    require(fuzz::equal(*left.field_array(), *right.field_array()),
            "a second run reads the same sample");
}

void check_rules(const std::vector<std::shared_ptr<GenericStrategy>>& candidates,
                 const parser::options& options) {
    std::vector<StrategyValuation> values;
    for (const auto& candidate : candidates) {
        values.push_back(candidate->valuation_record());
    }
    std::vector<std::size_t> all(values.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    const detection::ClassicRules chain(options.skip_variable_count_rule,
                                        options.expected_variables, options.detect_header_lines);
    for (const auto& rule : chain.rules()) {
        const std::vector<std::size_t> kept = rule->reduce(all, values);
        require(kept.empty() == all.empty(), "a rule keeps a candidate");
        require(std::ranges::includes(all, kept), "a rule keeps candidates in their order");
    }
    const int picked = chain.pick(values);
    require(picked >= -2 && picked < static_cast<int>(values.size()), "a candidate is picked");
    require((picked == -1) == values.empty(), "only of none is none picked");
}

void check_candidates(const Field& text, const parser::options& options,
                      const TypeAnalyzerOptions& type_options, std::size_t rows) {
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = rows;
    const auto lines = std::make_shared<LineReaderStrategy>(options, type_options);
    parser::read_sample(builder, lines, true);
    check_strategy(*lines, text, options, rows);
    const auto candidates = detection::get_candidate_strategies(*lines->field_array(), text,
                                                                options, type_options, builder);
    for (const auto& candidate : candidates) {
        check_strategy(*candidate, text, options, rows);
    }
    check_rules(candidates, options);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::size_t rows = input.size(100);
    const parser::options options = input.reading_options();
    const TypeAnalyzerOptions type_options = input.type_options();
    const fuzz::Text text = input.text();

    detection::StrategySelector selector(options, type_options);
    const auto first = selector.pick_strategy(text.field(), rows);
    require(first != nullptr, "there is an answer");
    check_strategy(*first, text.field(), options, rows);
    check_same(*first, *selector.pick_strategy(text.field(), rows));
    check_candidates(text.field(), options, type_options, rows);
    return 0;
}
