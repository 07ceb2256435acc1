// Rules that grade how well a candidate explains the sample.
#include "common_delimiters.hpp"
#include "picker/keep_candidates.hpp"
#include "textio/rules.hpp"

#include <cmath>

namespace textio::detection::picker_rules {
namespace {

/// How far above `best` a variation may lie and still count as good. The more lines were read, the
/// likelier is an odd one among them, so a long sample is given more room. The last bit of the
/// logarithm is the one figure that can differ between standard libraries.
double variation_margin(const StrategyValuation& best) {
    constexpr double margin_per_doubling_of_lines = 0.001;
    constexpr double share_of_best = 0.1;
    return std::max(std::log2(static_cast<double>(best.num_lines)) * margin_per_doubling_of_lines,
                    best.data_variation * share_of_best);
}

/// What the classes of the columns say for a candidate. The harder a class is to hit by chance, the
/// more it weighs; a column of lone delimiters says that the text was split at the wrong places.
std::int64_t class_score(const StrategyValuation& valuation) {
    constexpr std::int64_t datetime_weight = 25;
    constexpr std::int64_t temporal_weight = 10;
    constexpr std::int64_t number_weight = 3;

    const std::int64_t datetimes = valuation.datetime_variables;
    const std::int64_t temporals = valuation.temporal_variables;
    const std::int64_t numbers = valuation.numeric_variables;
    const std::int64_t punctuation = valuation.punctuation_variables;
    const std::int64_t others =
        valuation.classified_variables - punctuation - numbers - temporals - datetimes;
    return datetime_weight * datetimes + temporal_weight * temporals + number_weight * numbers -
           punctuation + others;
}

} // namespace

std::vector<std::size_t> variation::reduce(const std::vector<std::size_t>& candidates,
                                           const std::vector<StrategyValuation>& values) const {
    if (candidates.empty()) {
        return {};
    }
    const StrategyValuation& best =
        values[first_lowest(candidates, values, &StrategyValuation::data_variation)];
    return keep_if(candidates, values,
                   [&best, margin = variation_margin(best)](const StrategyValuation& valuation) {
                       return valuation.data_variation - best.data_variation < margin;
                   });
}

std::string_view variation::name() const noexcept {
    return "regular lines";
}

std::vector<std::size_t> class_value::reduce(const std::vector<std::size_t>& candidates,
                                             const std::vector<StrategyValuation>& values) const {
    return keep_highest(candidates, values, class_score);
}

std::string_view class_value::name() const noexcept {
    return "kinds of values";
}

std::vector<std::size_t> header_lines::reduce(const std::vector<std::size_t>& candidates,
                                              const std::vector<StrategyValuation>& values) const {
    // The first candidate alone decides whether the rule applies.
    if (candidates.empty() || values[candidates.front()].data_variation != 0.0) {
        return candidates;
    }
    const StrategyValuation& fewest =
        values[first_lowest(candidates, values, &StrategyValuation::header_lines)];
    return keep_if(candidates, values, [&fewest](const StrategyValuation& valuation) {
        return valuation.header_lines == fewest.header_lines && valuation.data_variation == 0.0;
    });
}

std::string_view header_lines::name() const noexcept {
    return "short header";
}

std::vector<std::size_t> priors_rank::reduce(const std::vector<std::size_t>& candidates,
                                             const std::vector<StrategyValuation>& values) const {
    constexpr auto common_rank_limit = static_cast<double>(common_delimiters.size());
    if (candidates.empty()) {
        return {};
    }
    const std::size_t best = first_lowest(candidates, values, &StrategyValuation::prior_rank);
    if (values[best].prior_rank < common_rank_limit) {
        return {best};
    }
    return candidates;
}

std::string_view priors_rank::name() const noexcept {
    return "usual delimiter";
}

} // namespace textio::detection::picker_rules
