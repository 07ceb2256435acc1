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

std::string_view numvariables::name() const noexcept {
    return "expected variables";
}

std::vector<std::size_t> dates::reduce(const std::vector<std::size_t>& candidates,
                                       const std::vector<StrategyValuation>& values) const {
    return keep_if(candidates, values, &StrategyValuation::has_dates);
}

std::string_view dates::name() const noexcept {
    return "dates";
}

std::vector<std::size_t> non_empty::reduce(const std::vector<std::size_t>& candidates,
                                           const std::vector<StrategyValuation>& values) const {
    return keep_highest(candidates, values, &StrategyValuation::classified_share);
}

std::string_view non_empty::name() const noexcept {
    return "filled columns";
}

} // namespace textio::detection::picker_rules
