#include "explanation.hpp"

#include "cell_text.hpp"
#include "layout_names.hpp"
#include "textio/candidates.hpp"
#include "textio/strategy.hpp"
#include "unicode.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace detect_layout {

namespace {

namespace detection = textio::detection;
using textio::GenericStrategy;
using textio::StrategyValuation;
using textio::enums::StrategyMode;
using Strategies = std::vector<std::shared_ptr<GenericStrategy>>;

constexpr auto chosen = "chosen";

/// The decision, taken with the library's own pieces in the order in which it takes them itself.
class Decision {
public:
    Decision(const textio::Field& text, const Settings& settings)
        : text_(text), settings_(settings) {
        builder_.text = &text_;
        builder_.sample_lines = settings.rows;
        line_ =
            std::make_shared<textio::LineReaderStrategy>(settings.options, settings.type_options);
        is_regular(line_);
    }

    Explanation explain() {
        const StrategyValuation& values = line_->valuation_record();
        if (values.temporal_variables + values.datetime_variables > 0) {
            return end_with_line("reads as dates",
                                 "Whole lines read as dates or times, so the "
                                 "text is taken for one column: comma, no header.");
        }
        if (line_->field_array()->line_count() == 0) {
            return end_with_line(chosen, "There is no text to look at.");
        }
        compared_ = detection::get_candidate_strategies(
            *line_->field_array(), text_, settings_.options, settings_.type_options, builder_);
        add(*line_, compared_.empty() ? chosen : "used to find candidates");
        choose();
        if (settings_.options.layout_hint != textio::parser::layout::fixed_width) {
            add_refused();
        }
        return std::move(result_);
    }

private:
    Explanation end_with_line(std::string_view verdict, std::string outcome) {
        add(*line_, verdict);
        result_.outcome = std::move(outcome);
        return std::move(result_);
    }

    void add(const GenericStrategy& strategy, std::string_view verdict) {
        result_.candidates.push_back(
            {layout_phrase(strategy), strategy.valuation_record(), std::string(verdict)});
    }

    /// Reads and values `strategy`, and tells whether its lines are regular enough to be compared.
    bool is_regular(const std::shared_ptr<GenericStrategy>& strategy) {
        Strategies unused;
        return detection::add_possible_strategy(strategy, unused, settings_.options,
                                                settings_.type_options, builder_);
    }

    void choose() {
        if (compared_.empty()) {
            result_.outcome = "No layout has regular lines, so each line is one field.";
        } else if (compared_.size() == 1) {
            add(*compared_.front(), chosen);
            result_.outcome = "Only one layout was left to compare.";
        } else {
            apply_rules();
        }
    }

    void apply_rules() {
        std::vector<StrategyValuation> values;
        std::vector<std::size_t> left;
        for (const auto& candidate : compared_) {
            left.push_back(values.size());
            values.push_back(candidate->valuation_record());
        }
        std::vector<std::string> verdicts(values.size());
        const auto& options = settings_.options;
        const detection::ClassicRules chain(options.skip_variable_count_rule,
                                            options.expected_variables,
                                            options.detect_header_lines);
        std::string_view last_rule;
        for (const auto& rule : chain.rules()) {
            if (left.size() < 2) {
                break;
            }
            last_rule = rule_name(*rule);
            const auto kept = rule->reduce(left, values);
            for (const std::size_t candidate : left) {
                if (std::find(kept.begin(), kept.end(), candidate) == kept.end()) {
                    verdicts[candidate] = fmt::format("dropped by '{}'", last_rule);
                }
            }
            left = kept;
        }
        const bool is_decided = left.size() == 1;
        for (const std::size_t candidate : left) {
            verdicts[candidate] = is_decided ? chosen : "not told apart";
        }
        result_.outcome = is_decided
                              ? fmt::format("The rule '{}' decided.", last_rule)
                              : "No rule could decide, so the text is taken for comma, no header.";
        for (std::size_t i = 0; i < compared_.size(); ++i) {
            add(*compared_[i], verdicts[i]);
        }
    }

    /// Adds the layouts that are not compared, because their lines are too irregular.
    void add_refused() {
        for (const char16_t unit : detection::get_candidate_delims(*line_->field_array())) {
            if (unit == settings_.options.quote ||
                settings_.options.excluded_delimiter.starts_with(unit)) {
                continue;
            }
            if (unit == u' ' && !was_compared(StrategyMode::space_aligned, unit) &&
                !was_compared(StrategyMode::fixed_width, unit)) {
                add_refused(std::make_shared<textio::SpaceAlignedStrategy>(settings_.options,
                                                                           settings_.type_options));
            }
            if (!was_compared(StrategyMode::delimited, unit)) {
                add_refused(std::make_shared<textio::DelimitedStrategy>(
                    settings_.options, settings_.type_options, unit));
            }
        }
    }

    void add_refused(const std::shared_ptr<GenericStrategy>& strategy) {
        // Single spaces are not compared either if aligned columns give more of them a meaning.
        const bool regular = is_regular(strategy);
        add(*strategy, regular ? "worse than aligned" : "too irregular");
    }

    [[nodiscard]] bool was_compared(StrategyMode mode, char16_t unit) const {
        return std::any_of(compared_.begin(), compared_.end(), [=](const auto& candidate) {
            return candidate->mode() == mode &&
                   (mode != StrategyMode::delimited ||
                    candidate->options().delimiters.front().starts_with(unit));
        });
    }

    const textio::Field& text_;
    const Settings& settings_;
    textio::output::DetectionOutputBuilder builder_;
    std::shared_ptr<GenericStrategy> line_; ///< the text as one field per line
    Strategies compared_;
    Explanation result_;
};

/// Layouts without a rank of their own have infinity or a huge number.
std::string rank(double value) {
    return value < 1000 ? fmt::format("{}", value) : "-";
}

std::string number(double value) {
    return fmt::format("{:.3g}", value);
}

} // namespace

std::string_view rule_name(const detection::picker_rules::Rule& rule) {
    namespace rules = detection::picker_rules;
    const auto is = [&rule]<typename Kind>(const Kind* /*kind*/) {
        return dynamic_cast<const Kind*>(&rule) != nullptr;
    };
    using std::string_view;
    return is(static_cast<rules::numvariables*>(nullptr))   ? string_view("expected variables")
           : is(static_cast<rules::dates*>(nullptr))        ? string_view("dates")
           : is(static_cast<rules::variation*>(nullptr))    ? string_view("regular lines")
           : is(static_cast<rules::class_value*>(nullptr))  ? string_view("kinds of values")
           : is(static_cast<rules::header_lines*>(nullptr)) ? string_view("short header")
           : is(static_cast<rules::non_empty*>(nullptr))    ? string_view("filled columns")
           : is(static_cast<rules::priors_rank*>(nullptr))  ? string_view("usual delimiter")
                                                            : string_view("a rule without a name");
}

Explanation explain(const textio::Field& text, const Settings& settings) {
    return Decision(text, settings).explain();
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
