#include "common_delimiters.hpp"
#include "detection/candidate_search.hpp"
#include "detection/fixed_width_candidates.hpp"
#include "detection/line_sample.hpp"
#include "parser/read_sample.hpp"
#include "strategies/line_figures.hpp"
#include "textio/candidates.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace textio::detection {

using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

constexpr std::u16string_view blank_characters = u" \t";

/// A reading whose lines stray further than this from their typical field count is no table.
constexpr double least_refused_variation = 1.0;

/// The length of `line` without the blanks at its end, but no less than `least`.
std::size_t text_length(std::span<const Field> line, std::size_t least) {
    if (line.empty() || line.front().size <= least) {
        return least;
    }
    return least + line.front().view().substr(least).find_last_not_of(blank_characters) + 1;
}

/// Whether the lines from `first_line` on could be padded out to columns: none of them ends before
/// the last non-blank character of any other.
bool lines_look_padded(const FieldArray& line_sample, std::size_t first_line) {
    std::size_t shortest = SIZE_MAX;
    std::size_t longest_text = 0;
    for (std::size_t line = first_line; line < line_sample.line_count(); ++line) {
        const std::span<const Field> fields = line_sample.line(line);
        const std::size_t length = length_of(fields);
        shortest = std::min(shortest, length);
        longest_text = text_length(fields, longest_text);
        if (length != 0 && longest_text > shortest) {
            return false;
        }
    }
    return true;
}

bool is_regular(const StrategyValuation& valuation) {
    return valuation.data_variation < least_refused_variation;
}

/// A single line is as regular as can be under any delimiter, so only a common one counts there.
bool can_be_compared(const StrategyValuation& valuation) {
    const bool is_common = valuation.prior_rank < static_cast<double>(common_delimiters.size());
    return is_regular(valuation) && (valuation.num_lines != 1 || is_common);
}

/// Builds the list of candidates of one run.
class CandidateSearch {
public:
    CandidateSearch(const FieldArray& line_sample, const parser::options& options,
                    const TypeAnalyzerOptions& type_options,
                    output::DetectionOutputBuilder& builder, DecisionObserver& observer)
        : line_sample_(line_sample), options_(options), type_options_(type_options),
          builder_(builder), observer_(observer) {}

    std::vector<std::shared_ptr<GenericStrategy>> run() {
        if (options_.layout_hint == parser::layout::fixed_width) {
            add_only_fixed_width();
        } else {
            add_separated_layouts();
        }
        return std::move(candidates_);
    }

private:
    void add_only_fixed_width() {
        if (!options_.field_widths.empty()) {
            add_with_given_widths();
        } else if (!options_.detect_header_lines &&
                   options_.header_lines >= line_sample_.line_count()) {
            add_without_data_lines();
        } else {
            add_columns_found();
        }
    }

    /// The header is settled after the valuation, whose record keeps the count it was made with.
    void add_with_given_widths() {
        auto strategy = make_fixed_width(options_.field_widths);
        parser::read_sample(builder_, strategy, true);
        strategy->header_lines(detect_header_lines_fixed_width(strategy, line_sample_, options_));
        add(std::move(strategy));
    }

    void add_without_data_lines() {
        auto strategy = make_fixed_width({1});
        strategy->header_lines(options_.header_lines);
        parser::read_sample(builder_, strategy, true);
        add(std::move(strategy));
    }

    /// The columns are sought whatever the space-aligned reading says, so that is not valued; its
    /// memory is free again when the columns are read.
    void add_columns_found() {
        const std::size_t header_lines =
            without_data_lines(aligned_header(), line_sample_, options_);
        add(read_fixed_columns(find_fixed_columns(line_sample_, header_lines, builder_).widths,
                               header_lines, options_, type_options_, builder_));
    }

    std::size_t aligned_header() {
        const std::shared_ptr<GenericStrategy> space_aligned = make_space_aligned();
        const std::size_t header_lines = read_and_measure(space_aligned).record.header_lines;
        observer_.tried(*space_aligned, Trial::worse_than_columns);
        return header_lines;
    }

    void add_separated_layouts() {
        const std::u16string delimiters = get_candidate_delims(line_sample_);
        candidates_.reserve(delimiters.size() + 1);
        for (const char16_t delimiter : delimiters) {
            if (is_ruled_out(delimiter)) {
                continue;
            }
            if (delimiter == blank) {
                add_blank_layouts();
            } else {
                add_if_possible(make_delimited(delimiter));
            }
        }
    }

    /// Blanks can align columns, or each blank can end a field. The second reading becomes a
    /// candidate beside the first only if it gives at least as large a share of its columns a
    /// class.
    void add_blank_layouts() {
        const double aligned_share = add_aligned_layout();
        auto space_delimited = make_delimited(blank);
        const LineFigures figures = read_and_measure(space_delimited);
        if (!is_regular(figures.record)) {
            observer_.tried(*space_delimited, Trial::irregular);
        } else if (figures.settle(*space_delimited).classified_share() >= aligned_share) {
            add_valued(std::move(space_delimited));
        } else {
            observer_.tried(*space_delimited, Trial::worse_than_aligned);
        }
    }

    /// Gives the share of the columns of the space-aligned reading that have a class, or 0 if
    /// nothing was added.
    double add_aligned_layout() {
        std::shared_ptr<GenericStrategy> space_aligned = make_space_aligned();
        const LineFigures figures = read_and_measure(space_aligned);
        if (can_be_fixed_width(figures.record.header_lines)) {
            const double share = figures.settle(*space_aligned).classified_share();
            add(columns_or_aligned(std::move(space_aligned), line_sample_, options_, type_options_,
                                   builder_, observer_));
            return share;
        }
        if (!is_regular(figures.record)) {
            observer_.tried(*space_aligned, Trial::irregular);
            return 0;
        }
        const double share = figures.settle(*space_aligned).classified_share();
        return add_valued(std::move(space_aligned)) ? share : 0;
    }

    [[nodiscard]] bool can_be_fixed_width(std::size_t header_lines) const {
        const std::size_t lines = line_sample_.line_count();
        return options_.layout_hint != parser::layout::no_fixed_width && lines >= 2 &&
               header_lines < lines && lines_look_padded(line_sample_, header_lines);
    }

    [[nodiscard]] bool is_ruled_out(char16_t delimiter) const {
        return delimiter == options_.quote || (!options_.excluded_delimiter.empty() &&
                                               delimiter == options_.excluded_delimiter.front());
    }

    /// If the lines of a layout alone rule it out, nobody asks for the classes of its columns.
    void add_if_possible(std::shared_ptr<GenericStrategy> strategy) {
        const LineFigures figures = read_and_measure(strategy);
        if (!is_regular(figures.record)) {
            observer_.tried(*strategy, Trial::irregular);
            return;
        }
        figures.settle(*strategy);
        add_valued(std::move(strategy));
    }

    LineFigures read_and_measure(const std::shared_ptr<GenericStrategy>& strategy) {
        parser::read_sample(builder_, strategy, false);
        return LineFigures(*strategy);
    }

    bool add_valued(std::shared_ptr<GenericStrategy> strategy) {
        const bool is_possible = can_be_compared(strategy->valuation());
        if (is_possible) {
            add(std::move(strategy));
        } else {
            observer_.tried(*strategy, Trial::irregular);
        }
        return is_possible;
    }

    void add(std::shared_ptr<GenericStrategy> strategy) {
        candidates_.push_back(std::move(strategy));
        observer_.tried(*candidates_.back(), Trial::compared);
    }

    [[nodiscard]] std::shared_ptr<GenericStrategy> make_space_aligned() const {
        return std::make_shared<SpaceAlignedStrategy>(options_, type_options_);
    }

    [[nodiscard]] std::shared_ptr<GenericStrategy> make_delimited(char16_t delimiter) const {
        return std::make_shared<DelimitedStrategy>(options_, type_options_, delimiter);
    }

    [[nodiscard]] std::shared_ptr<GenericStrategy>
    make_fixed_width(std::vector<std::size_t> widths) const {
        return std::make_shared<FixedWidthStrategy>(options_, type_options_, std::move(widths));
    }

    const FieldArray& line_sample_;
    const parser::options& options_;
    const TypeAnalyzerOptions& type_options_;
    output::DetectionOutputBuilder& builder_;
    DecisionObserver& observer_;
    std::vector<std::shared_ptr<GenericStrategy>> candidates_;
};

} // namespace

bool add_possible_strategy(std::shared_ptr<GenericStrategy> strategy,
                           std::vector<std::shared_ptr<GenericStrategy>>& candidates,
                           const parser::options& /*options*/,
                           const TypeAnalyzerOptions& /*type_options*/,
                           output::DetectionOutputBuilder& builder) {
    parser::read_sample(builder, strategy, true);
    const bool is_possible = can_be_compared(strategy->valuation());
    if (is_possible) {
        candidates.push_back(std::move(strategy));
    }
    return is_possible;
}

std::vector<std::shared_ptr<GenericStrategy>>
get_candidate_strategies(const FieldArray& line_sample, const Field& /*text*/,
                         const parser::options& options, const TypeAnalyzerOptions& type_options,
                         output::DetectionOutputBuilder& builder) {
    DecisionObserver nobody;
    return find_candidates(line_sample, options, type_options, builder, nobody);
}

std::vector<std::shared_ptr<GenericStrategy>>
find_candidates(const FieldArray& line_sample, const parser::options& options,
                const TypeAnalyzerOptions& type_options, output::DetectionOutputBuilder& builder,
                DecisionObserver& observer) {
    return CandidateSearch(line_sample, options, type_options, builder, observer).run();
}

} // namespace textio::detection
