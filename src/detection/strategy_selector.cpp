#include "textio/strategy_selector.hpp"

#include "detection/candidate_search.hpp"
#include "parser/read_sample.hpp"
#include "textio/candidates.hpp"
#include "textio/rules.hpp"

#include <utility>

namespace textio::detection {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

using Candidates = std::vector<std::shared_ptr<GenericStrategy>>;

int pick_candidate(const Candidates& candidates, const parser::options& options,
                   DecisionObserver& observer) {
    std::vector<StrategyValuation> valuations;
    valuations.reserve(candidates.size());
    for (const auto& candidate : candidates) {
        valuations.push_back(candidate->valuation());
    }
    const ClassicRules rules(options.skip_variable_count_rule, options.expected_variables,
                             options.detect_header_lines);
    return rules.pick(valuations,
                      [&observer](const auto& rule, const auto& before, const auto& after) {
                          observer.ruled(rule, before, after);
                      });
}

} // namespace

StrategySelector::StrategySelector(const parser::options& options,
                                   const TypeAnalyzerOptions& type_options)
    : options_(options), type_options_(type_options), delimiters_(options.delimiters),
      header_lines_(options.header_lines), detect_delimiters_(options.detect_delimiters),
      detect_header_lines_(options.detect_header_lines) {}

std::shared_ptr<GenericStrategy> StrategySelector::pick_strategy(const Field& text,
                                                                 std::size_t sample_lines) {
    DecisionObserver nobody;
    return pick_strategy(text, sample_lines, nobody);
}

std::shared_ptr<GenericStrategy> StrategySelector::pick_strategy(const Field& text,
                                                                 std::size_t sample_lines,
                                                                 DecisionObserver& observer) {
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = sample_lines;
    const auto answer = [&observer](std::shared_ptr<GenericStrategy> strategy, Ground ground) {
        observer.decided(*strategy, ground);
        return strategy;
    };
    const auto fallback = [&](Ground ground) {
        return answer(fallback_strategy(options_, type_options_, text, sample_lines, builder),
                      ground);
    };

    const auto line_strategy = std::make_shared<LineReaderStrategy>(options_, type_options_);
    parser::read_sample(builder, line_strategy, true);
    observer.tried(*line_strategy, Trial::shows_candidates);
    if (line_strategy->valuation().has_dates()) {
        return fallback(Ground::lines_are_dates);
    }
    const FieldArray& line_sample = *line_strategy->field_array();
    if (line_sample.line_ends.empty()) {
        return answer(line_strategy, Ground::no_lines);
    }
    const Candidates candidates =
        find_candidates(line_sample, options_, type_options_, builder, observer);
    if (candidates.empty()) {
        return answer(line_strategy, Ground::no_candidate);
    }
    if (candidates.size() == 1) {
        return answer(candidates.front(), Ground::only_candidate);
    }
    const int picked = pick_candidate(candidates, options_, observer);
    return picked < 0 ? fallback(Ground::not_separated)
                      : answer(candidates[static_cast<std::size_t>(picked)], Ground::rules);
}

} // namespace textio::detection
