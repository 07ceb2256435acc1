#include "advice/advisor.hpp"

#include "advice/comments.hpp"
#include "advice/given.hpp"
#include "advice/lines.hpp"
#include "advice/ranking.hpp"
#include "advice/weights.hpp"
#include "parser/read_sample.hpp"

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace textio::advice {

using enums::StrategyMode;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

/// Fields of the widest row; 1 where there is none.
std::size_t widest_row(const FieldArray& sample) {
    std::size_t widest = 1;
    for_each_row(sample, [&widest](std::size_t, std::span<const Field> row) {
        widest = std::max(widest, row.size());
    });
    return widest;
}

/// The comments that a text read line by line shows, as readers are told of them.
std::vector<std::u16string> comments_of(const FieldArray& lines,
                                        std::span<const std::u16string> openers) {
    if (has_block_comments(lines)) {
        return {std::u16string(block_opener), std::u16string(block_closer)};
    }
    const std::u16string_view opener = choose_comment_opener(lines, openers);
    return opener.empty() ? std::vector<std::u16string>()
                          : std::vector<std::u16string>{std::u16string(opener)};
}

} // namespace

Advisor::Advisor(const Field& text, std::size_t sample_lines, const Settings& settings)
    : text_(text), sample_lines_(sample_lines), settings_(settings), options_(options_of(settings)),
      type_options_(type_options_of(settings)), memory_(type_options_, text.data) {
    builder_.text = &text_;
    builder_.sample_lines = sample_lines_;
}

Advice Advisor::run() {
    read_lines();
    if (!survey_.lines.empty()) {
        read_separators();
        if (!has_delimited_table()) {
            read_blanks();
            find_columns_at_positions();
        }
        read_ragged_rows();
    }
    add_line_reading();
    lengthen_raw_lines();
    weigh_against_context(readings_, context());
    return rank(std::move(readings_), sources());
}

/// Reads the text line by line, with and, where it has some, without its comments.
void Advisor::read_lines() {
    parser::options raw = options_;
    raw.comment_style.clear();
    raw_lines_ = std::make_shared<LineReaderStrategy>(raw, type_options_);
    read(raw_lines_);
    if (!settings_.comment_style) {
        options_.comment_style = comments_of(*raw_lines_->field_array(), settings_.comment_openers);
    }
    lines_ = raw_lines_;
    if (!options_.comment_style.empty()) {
        lines_ = std::make_shared<LineReaderStrategy>(options_, type_options_);
        read(lines_);
    }
    survey_ = survey_lines(*lines_->field_array());
}

/// Comments, and lines in quotes, are rows of the raw lines: these may end before other samples do,
/// and are then read once more, up to where the last of those ends.
void Advisor::lengthen_raw_lines() {
    const char16_t* const end = end_of_samples();
    if (end == nullptr || std::less_equal<>()(end, end_of(*raw_lines_->field_array()))) {
        return;
    }
    const Field sampled(text_.data, static_cast<std::size_t>(end - text_.data));
    raw_lines_ = std::make_shared<LineReaderStrategy>(raw_lines_->options(), type_options_);
    builder_.text = &sampled;
    builder_.sample_lines = SIZE_MAX;
    parser::read_sample(builder_, raw_lines_, false);
    builder_.text = &text_;
    builder_.sample_lines = sample_lines_;
}

/// Where the longest of the samples without comments ends; null if none has a field.
const char16_t* Advisor::end_of_samples() const {
    const char16_t* end = end_of(*lines_->field_array());
    for (const Reading& reading : readings_) {
        if (reading.strategy != nullptr) {
            end = std::max(end, end_of(*reading.strategy->field_array()), std::less<>());
        }
    }
    return end;
}

void Advisor::add_line_reading() {
    if (may_be(StrategyMode::line_reader)) {
        Reading reading;
        reading.quote = options_.quote;
        reading.strategy = lines_;
        grade_lines(reading, context());
        readings_.push_back(std::move(reading));
    } else if (readings_.empty()) {
        add_told_reading();
    }
}

/// The layout that the host told is proposed though nothing in the text shows it.
void Advisor::add_told_reading() {
    Reading reading = may_be(StrategyMode::fixed_width) ? told_positions() : told_rows();
    reading.quote = options_.quote;
    reading.terms = Terms();
    reading.terms[TermKind::prior] = weights::of_lines;
    reading.score = reading.terms.product();
    readings_.push_back(std::move(reading));
}

Reading Advisor::told_positions() {
    const FieldArray& lines = *lines_->field_array();
    const std::vector<std::size_t> widths =
        has_given_widths() ? *settings_.widths : std::vector<std::size_t>{1};
    Reading reading = begin_positions(positions_of_widths(widths, lines), context());
    reading.quote = options_.quote;
    if (!lines.fields.empty()) {
        grade_positions(reading, context());
    }
    return reading;
}

Reading Advisor::told_rows() {
    Reading reading = may_be(StrategyMode::delimited)
                          ? begin_delimited(told_delimiter(), options_.quote)
                          : begin_blank_separated(options_.quote);
    read(reading.strategy);
    reading.columns = widest_row(*reading.strategy->field_array());
    return reading;
}

/// The delimiter that the host told, or else the usual one.
std::u16string Advisor::told_delimiter() const {
    const std::u16string told = settings_.delimiter.value_or(std::u16string());
    return told.empty() ? u"," : told;
}

ProposalSources Advisor::sources() {
    ProposalSources sources;
    sources.builder = &builder_;
    sources.settings = &settings_;
    sources.options = &options_;
    sources.lines = lines_->field_array();
    sources.raw_lines = raw_lines_->field_array();
    sources.memory = &memory_;
    return sources;
}

void Advisor::read(const std::shared_ptr<GenericStrategy>& strategy) {
    ++reads_;
    parser::read_sample(builder_, strategy, false);
}

bool Advisor::may_be(StrategyMode layout) const {
    if (settings_.delimiter) {
        return layout == StrategyMode::delimited;
    }
    if (settings_.widths) {
        return layout == StrategyMode::fixed_width;
    }
    return !settings_.layout || *settings_.layout == layout;
}

bool Advisor::has_given_widths() const {
    return settings_.widths && !settings_.widths->empty();
}

/// Whether a reading of a layout with such a prior could still be the best.
bool Advisor::may_win(StrategyMode layout, double prior) const {
    return may_be(layout) && can_still_win(prior);
}

bool Advisor::may_read_more() const {
    return reads_ < settings_.reading_limit;
}

/// Whether a reading whose score cannot pass `upper_bound` could still be the best.
bool Advisor::can_still_win(double upper_bound) const {
    return std::none_of(readings_.begin(), readings_.end(),
                        [&](const Reading& reading) { return reading.score > upper_bound; });
}

/// Whether enough lines have blanks inside for a layout that blanks make, or the host says so.
bool Advisor::has_blanks() const {
    constexpr double some = 0.3;
    return settings_.layout || survey_.share(u'\t') >= some ||
           survey_.share_of(survey_.with_blank) >= some;
}

parser::options Advisor::options_with(char16_t quote) const {
    parser::options options = options_;
    options.quote = quote;
    return options;
}

GradingContext Advisor::context() {
    return {lines_->field_array(), &survey_, &memory_};
}

} // namespace textio::advice
