/// \file
/// The rules that choose between valued layouts, and the chain that applies them in turn.
#pragma once

#include "textio/export.hpp"
#include "textio/strategy_valuation.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace textio::detection {

namespace picker_rules {

/// A rule of the chain. Candidates are indexes into a vector of valuations.
class TEXTIO_EXPORT Rule {
public:
    Rule() = default;
    Rule(const Rule&) = delete;
    Rule& operator=(const Rule&) = delete;

    /// The `candidates` that this rule ranks best, in their given order. A rule that would keep
    /// none keeps all, so the result is empty only if `candidates` is. This base keeps none.
    [[nodiscard]] virtual std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const;

    virtual ~Rule();

    /// What the rule goes by, in words for a user. This base has no name, so the result is empty.
    [[nodiscard]] virtual std::string_view name() const noexcept;
};

/// Keeps candidates with exactly the expected number of variables.
class TEXTIO_EXPORT numvariables : public Rule {
public:
    /// The number of variables that the text is known to have.
    explicit numvariables(std::size_t expected_variables);
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;

private:
    std::size_t expected_variables_;
};

/// Keeps candidates that found dates, durations or datetimes.
class TEXTIO_EXPORT dates : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

/// Keeps candidates whose data lines are nearly as regular as those of the most regular one.
class TEXTIO_EXPORT variation : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

/// Keeps candidates with the highest score over the classes of their columns.
class TEXTIO_EXPORT class_value : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

/// Keeps the perfectly regular candidates with the fewest header lines, if the first candidate is
/// perfectly regular.
class TEXTIO_EXPORT header_lines : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

/// Keeps candidates with the largest share of columns that got a class.
class TEXTIO_EXPORT non_empty : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

/// Keeps the one candidate with the lowest prior rank, the first of equals, if that rank is that of
/// a common delimiter or of space alignment.
class TEXTIO_EXPORT priors_rank : public Rule {
public:
    [[nodiscard]] std::vector<std::size_t>
    reduce(const std::vector<std::size_t>& candidates,
           const std::vector<StrategyValuation>& values) const override;
    [[nodiscard]] std::string_view name() const noexcept override;
};

} // namespace picker_rules

/// Is told, each time that a rule was asked, of the rule, the candidates that it was to choose
/// among, and those that it kept.
using RuleObserver =
    std::function<void(const picker_rules::Rule& rule, const std::vector<std::size_t>& before,
                       const std::vector<std::size_t>& after)>;

/// The chain: rules applied in turn until one candidate is left or the rules run out.
class TEXTIO_EXPORT ClassicRules {
public:
    /// Builds the chain. `numvariables` takes part, with `expected_variables`, only if
    /// `skip_variable_count_rule` is false, and `header_lines` only if `detect_header_lines` is
    /// true.
    ClassicRules(bool skip_variable_count_rule, std::size_t expected_variables,
                 bool detect_header_lines);
    ClassicRules(const ClassicRules&) = delete;
    ClassicRules& operator=(const ClassicRules&) = delete;
    ~ClassicRules();

    /// The index of the one candidate left, -1 if there is none, and -2 if the rules could not
    /// separate the last few. `values` is only read. Throws only `std::bad_alloc`.
    [[nodiscard]] int pick(std::vector<StrategyValuation>& values) const;

    /// The same, and tells `observer`, which must not be empty, of each rule that is asked. What it
    /// throws goes through.
    [[nodiscard]] int pick(std::vector<StrategyValuation>& values,
                           const RuleObserver& observer) const;

    /// The rules, first to last. They belong to the chain.
    [[nodiscard]] const std::vector<std::unique_ptr<picker_rules::Rule>>& rules() const noexcept {
        return rules_;
    }

private:
    std::vector<std::unique_ptr<picker_rules::Rule>> rules_;
};

} // namespace textio::detection
