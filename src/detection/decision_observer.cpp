#include "textio/decision_observer.hpp"

namespace textio::detection {

DecisionObserver::~DecisionObserver() = default;

void DecisionObserver::tried(GenericStrategy& /*strategy*/, Trial /*trial*/) {}

void DecisionObserver::ruled(const picker_rules::Rule& /*rule*/,
                             const std::vector<std::size_t>& /*before*/,
                             const std::vector<std::size_t>& /*after*/) {}

void DecisionObserver::decided(GenericStrategy& /*answer*/, Ground /*ground*/) {}

} // namespace textio::detection
