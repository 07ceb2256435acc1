/// \file
/// Tries assumptions about a text, and ranks what comes of them.
#pragma once

#include "advice/cell_kind.hpp"
#include "advice/grading.hpp"
#include "advice/proposing.hpp"
#include "advice/reading.hpp"
#include "advice/separators.hpp"
#include "advice/survey.hpp"
#include "textio/advice.hpp"
#include "textio/field.hpp"
#include "textio/type_analyzer.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace textio::advice {

/// One run of `advise`. The text is read line by line, once more without its comments if it seems
/// to have some, then under each separator that its lines suggest, likeliest first; positions come
/// last. What cannot win any more is not read.
class Advisor {
public:
    /// All must outlive the advisor.
    Advisor(const Field& text, std::size_t sample_lines, const Settings& settings);

    /// Makes the readings and proposes the best of them. To be called once.
    Advice run();

private:
    void read_lines();
    void read_separators();
    void read_separator(const Separator& separator);
    void read_suggested_separators();
    void read_delimiters_of_host();
    void read_under_quotes(const Separator& separator);
    void read_under_other_quotes(const Separator& separator);
    void read_blanks();
    void read_ragged_rows();
    void find_columns_at_positions();
    [[nodiscard]] std::vector<Reading> begin_shown_positions();
    void grade_best_positions(std::vector<Reading> begun);
    void add_line_reading();
    void add_told_reading();
    [[nodiscard]] Reading told_positions();
    [[nodiscard]] Reading told_rows();
    [[nodiscard]] std::u16string told_delimiter() const;
    void lengthen_raw_lines();
    [[nodiscard]] const char16_t* end_of_samples() const;

    void add_delimited(const Separator& separator, char16_t quote);
    void add_blank_separated(char16_t quote, double prior);
    void add_rows(Reading&& reading, double prior);
    [[nodiscard]] Reading begin_delimited(const std::u16string& delimiter, char16_t quote) const;
    [[nodiscard]] Reading begin_blank_separated(char16_t quote) const;
    void keep_graded(Reading&& reading);
    void read(const std::shared_ptr<GenericStrategy>& strategy);

    [[nodiscard]] bool may_be(enums::StrategyMode layout) const;
    [[nodiscard]] bool has_given_widths() const;
    [[nodiscard]] bool may_win(enums::StrategyMode layout, double prior) const;
    [[nodiscard]] bool may_read_more() const;
    [[nodiscard]] bool can_still_win(double upper_bound) const;
    [[nodiscard]] bool frames(char16_t quote, const Separator& separator) const;
    [[nodiscard]] bool has_delimited_table() const;
    [[nodiscard]] bool has_blanks() const;
    [[nodiscard]] bool blanks_will_do() const;
    [[nodiscard]] bool are_tabs_all_blanks() const;
    [[nodiscard]] parser::options options_with(char16_t quote) const;
    [[nodiscard]] GradingContext context();
    [[nodiscard]] ProposalSources sources();

    const Field& text_;
    std::size_t sample_lines_;
    const Settings& settings_;
    parser::options options_;
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options_;
    CellMemory memory_;
    output::DetectionOutputBuilder builder_;     ///< hands on what reads have in common
    std::shared_ptr<GenericStrategy> raw_lines_; ///< the text line by line, comments included
    std::shared_ptr<GenericStrategy> lines_;     ///< and without them
    Survey survey_;
    std::vector<Reading> readings_; ///< as they were made
    std::size_t reads_ = 0;
};

} // namespace textio::advice
