#include "textio/rules.hpp"

#include <numeric>
#include <utility>

namespace textio::detection {

namespace picker_rules {

std::vector<std::size_t> Rule::reduce(const std::vector<std::size_t>& /*candidates*/,
                                      const std::vector<StrategyValuation>& /*values*/) const {
    return {};
}

Rule::~Rule() = default;

std::string_view Rule::name() const noexcept {
    return {};
}

} // namespace picker_rules

ClassicRules::ClassicRules(bool skip_variable_count_rule, std::size_t expected_variables,
                           bool detect_header_lines) {
    constexpr std::size_t most_rules = 7;
    rules_.reserve(most_rules);
    if (!skip_variable_count_rule) {
        rules_.push_back(std::make_unique<picker_rules::numvariables>(expected_variables));
    }
    rules_.push_back(std::make_unique<picker_rules::dates>());
    rules_.push_back(std::make_unique<picker_rules::variation>());
    rules_.push_back(std::make_unique<picker_rules::class_value>());
    if (detect_header_lines) {
        rules_.push_back(std::make_unique<picker_rules::header_lines>());
    }
    rules_.push_back(std::make_unique<picker_rules::non_empty>());
    rules_.push_back(std::make_unique<picker_rules::priors_rank>());
}

ClassicRules::~ClassicRules() {
    // Rules are destroyed from the last to the first. A vector by itself would leave the order
    // open.
    while (!rules_.empty()) {
        rules_.pop_back();
    }
}

int ClassicRules::pick(std::vector<StrategyValuation>& values) const {
    return pick(values, [](const auto& /*rule*/, const auto& /*before*/, const auto& /*after*/) {});
}

int ClassicRules::pick(std::vector<StrategyValuation>& values, const RuleObserver& observer) const {
    constexpr int none_left = -1;
    constexpr int not_separated = -2;

    std::vector<std::size_t> candidates(values.size());
    std::iota(candidates.begin(), candidates.end(), std::size_t{0});
    for (const auto& rule : rules_) {
        if (candidates.size() < 2) {
            break;
        }
        std::vector<std::size_t> kept = rule->reduce(candidates, values);
        observer(*rule, candidates, kept);
        candidates = std::move(kept);
    }
    if (candidates.empty()) {
        return none_left;
    }
    return candidates.size() == 1 ? static_cast<int>(candidates.front()) : not_separated;
}

} // namespace textio::detection
