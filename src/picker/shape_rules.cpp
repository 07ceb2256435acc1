// Rules that look at how many variables a candidate found and of which kinds.
#include "picker/keep_candidates.hpp"
#include "textio/rules.hpp"

namespace textio::detection::picker_rules {

numvariables::numvariables(std::size_t expected_variables)
    : expected_variables_(expected_variables) {}

std::vector<std::size_t> numvariables::reduce(const std::vector<std::size_t>& candidates,
                                              const std::vector<StrategyValuation>& values) const {
    return keep_if(candidates, values, [this](const StrategyValuation& valuation) {
        return valuation.num_variables == expected_variables_;
    });
}

std::vector<std::size_t> dates::reduce(const std::vector<std::size_t>& candidates,
                                       const std::vector<StrategyValuation>& values) const {
    return keep_if(candidates, values, [](const StrategyValuation& valuation) {
        return valuation.temporal_variables > 0 || valuation.datetime_variables > 0;
    });
}

std::vector<std::size_t> non_empty::reduce(const std::vector<std::size_t>& candidates,
                                           const std::vector<StrategyValuation>& values) const {
    return keep_highest(candidates, values, [](const StrategyValuation& valuation) {
        return static_cast<double>(valuation.classified_variables) /
               static_cast<double>(valuation.num_variables);
    });
}

} // namespace textio::detection::picker_rules
