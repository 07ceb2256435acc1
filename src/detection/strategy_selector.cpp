#include "textio/strategy_selector.hpp"

#include "parser/read_sample.hpp"
#include "textio/candidates.hpp"
#include "textio/rules.hpp"

#include <utility>

namespace textio::detection {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

using Candidates = std::vector<std::shared_ptr<GenericStrategy>>;

/// What `ClassicRules::pick` gives when the rules could not separate the last few candidates.
constexpr int undecided = -2;

bool holds_dates(const StrategyValuation& valuation) {
    return valuation.temporal_variables > 0 || valuation.datetime_variables > 0;
}

int pick_candidate(const Candidates& candidates, const parser::options& options) {
    std::vector<StrategyValuation> valuations;
    valuations.reserve(candidates.size());
    for (const auto& candidate : candidates) {
        valuations.push_back(candidate->valuation());
    }
    const ClassicRules rules(options.skip_variable_count_rule, options.expected_variables,
                             options.detect_header_lines);
    return rules.pick(valuations);
}

} // namespace

StrategySelector::StrategySelector(const parser::options& options,
                                   const TypeAnalyzerOptions& type_options)
    : options_(options), type_options_(type_options), delimiters_(options.delimiters),
      header_lines_(options.header_lines), detect_delimiters_(options.detect_delimiters),
      detect_header_lines_(options.detect_header_lines) {}

std::shared_ptr<GenericStrategy> StrategySelector::pick_strategy(const Field& text,
                                                                 std::size_t sample_lines) {
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = sample_lines;
    const auto fallback = [&] {
        return fallback_strategy(options_, type_options_, text, sample_lines, builder);
    };

    auto line_strategy = std::make_shared<LineReaderStrategy>(options_, type_options_);
    parser::read_sample(builder, line_strategy, true);
    if (holds_dates(line_strategy->valuation())) {
        return fallback();
    }
    const FieldArray& line_sample = *line_strategy->field_array();
    if (line_sample.line_ends.empty()) {
        return line_strategy;
    }
    const Candidates candidates =
        get_candidate_strategies(line_sample, text, options_, type_options_, builder);
    if (candidates.empty()) {
        return line_strategy;
    }
    if (candidates.size() == 1) {
        return candidates.front();
    }
    const int picked = pick_candidate(candidates, options_);
    if (picked == undecided) {
        return fallback();
    }
    return picked < 0 ? line_strategy : candidates[static_cast<std::size_t>(picked)];
}

} // namespace textio::detection
