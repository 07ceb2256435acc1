#include "explanation.hpp"

#include "cell_text.hpp"
#include "layout_names.hpp"
#include "textio/decision_observer.hpp"
#include "textio/strategy_selector.hpp"
#include "unicode.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace detect_layout {

namespace {

namespace detection = textio::detection;
using detection::Ground;
using detection::Trial;
using textio::GenericStrategy;

constexpr auto chosen = "chosen";

/// Takes notes while a decision is taken.
class Notes : public detection::DecisionObserver {
public:
    void tried(GenericStrategy& strategy, Trial trial) override {
        switch (trial) {
        case Trial::shows_candidates:
            lines_ = noted(strategy, "used to find candidates");
            break;
        case Trial::compared:
            compared_.push_back(noted(strategy, ""));
            break;
        case Trial::irregular:
            refused_.push_back(noted(strategy, "too irregular"));
            break;
        case Trial::worse_than_aligned:
            refused_.push_back(noted(strategy, "worse than aligned"));
            break;
        case Trial::worse_than_columns:
            break; // the columns are among the candidates
        }
    }

    void ruled(const detection::picker_rules::Rule& rule, const std::vector<std::size_t>& before,
               const std::vector<std::size_t>& after) override {
        last_rule_ = rule.name();
        for (const std::size_t candidate : before) {
            if (std::find(after.begin(), after.end(), candidate) == after.end()) {
                compared_[candidate].verdict = fmt::format("dropped by '{}'", last_rule_);
            }
        }
    }

    void decided(GenericStrategy& /*answer*/, Ground ground) override {
        const bool is_undecided = ground == Ground::not_separated;
        for (ExplainedCandidate& candidate : compared_) {
            if (candidate.verdict.empty()) {
                candidate.verdict = is_undecided ? "not told apart" : chosen;
            }
        }
        if (ground == Ground::lines_are_dates) {
            lines_.verdict = "reads as dates";
        } else if (ground == Ground::no_lines || ground == Ground::no_candidate) {
            lines_.verdict = chosen;
        }
        outcome_ = in_words(ground);
    }

    /// All notes, the candidates that were compared first.
    Explanation explanation() && {
        Explanation result{{std::move(lines_)}, std::move(outcome_)};
        for (auto* const part : {&compared_, &refused_}) {
            std::move(part->begin(), part->end(), std::back_inserter(result.candidates));
        }
        return result;
    }

private:
    static ExplainedCandidate noted(GenericStrategy& strategy, std::string_view verdict) {
        const textio::StrategyValuation& values = strategy.valuation();
        return {layout_phrase(strategy), values, std::string(verdict)};
    }

    [[nodiscard]] std::string in_words(Ground ground) const {
        switch (ground) {
        case Ground::lines_are_dates:
            return "Whole lines read as dates or times, so the text is taken for one column: "
                   "comma, no header.";
        case Ground::no_lines:
            return "There is no text to look at.";
        case Ground::no_candidate:
            return "No layout has regular lines, so each line is one field.";
        case Ground::only_candidate:
            return "Only one layout was left to compare.";
        case Ground::rules:
            return fmt::format("The rule '{}' decided.", last_rule_);
        case Ground::not_separated:
            return "No rule could decide, so the text is taken for comma, no header.";
        }
        return {};
    }

    ExplainedCandidate lines_; ///< the text as one field per line
    std::vector<ExplainedCandidate> compared_;
    std::vector<ExplainedCandidate> refused_;
    std::string last_rule_;
    std::string outcome_;
};

/// Layouts without a rank of their own have infinity or a huge number.
std::string rank(double value) {
    return value < 1000 ? fmt::format("{}", value) : "-";
}

std::string number(double value) {
    return fmt::format("{:.3g}", value);
}

} // namespace

Explanation explain(const textio::Field& text, const Settings& settings) {
    detection::StrategySelector selector(settings.options, settings.type_options);
    Notes notes;
    selector.pick_strategy(text, settings.rows, notes);
    return std::move(notes).explanation();
}

std::string draw_table(const Explanation& explanation) {
    constexpr std::size_t name_width = 28;
    constexpr auto format = "  {:<28} {:>9} {:>7} {:>9} {:>10} {:>7} {:>5} {:>5}  {}\n";
    std::string table = fmt::format(format, "layout", "variation", "header", "variables",
                                    "classified", "numbers", "dates", "rank", "verdict");
    for (const auto& [layout, values, verdict] : explanation.candidates) {
        const auto name = printable(to_utf16(layout), name_width).utf8;
        table +=
            fmt::format(format, name, number(values.data_variation), values.header_lines,
                        values.num_variables, values.classified_variables, values.numeric_variables,
                        values.temporal_variables + values.datetime_variables,
                        rank(values.prior_rank), verdict);
    }
    return table + "  " + explanation.outcome + "\n";
}

} // namespace detect_layout
