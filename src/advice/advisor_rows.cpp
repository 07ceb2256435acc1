#include "advice/advisor.hpp"

#include "advice/parts.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <utility>

namespace textio::advice {

using enums::StrategyMode;

namespace {

constexpr char16_t usual_quote = u'"';

/// The one of the other quotes that some programs write only where a field needs it.
constexpr char16_t apostrophe = u'\'';

/// Whether a reading shows that its quotes may be none: it is not regular, or cells hold half a
/// pair.
bool has_odd_quotes(const Reading& reading) {
    return reading.run.consistency() < 1 || reading.figures.broken != 0;
}

bool has_value_behind(std::u16string_view line, std::size_t at) {
    return at + 1 < line.size() && line[at + 1] != u' ';
}

/// Whether a delimiter stands in a line where no punctuation does: a blank or nothing follows that.
bool separates(std::u16string_view line, char16_t delimiter) {
    return any_place(line, delimiter,
                     [line](std::size_t at) { return has_value_behind(line, at); });
}

bool separates_nearly_all(const FieldArray& lines, char16_t delimiter) {
    const auto with =
        std::count_if(lines.fields.begin(), lines.fields.end(),
                      [delimiter](const Field& line) { return separates(line.view(), delimiter); });
    return static_cast<std::size_t>(with) * 10 >= lines.fields.size() * 9;
}

/// The common delimiter that separates something on nearly all lines; 0 if none does.
char16_t delimiter_of_all_lines(const FieldArray& lines, const Survey& survey) {
    const auto* const found =
        std::find_if(common_delimiters_of_files.begin(), common_delimiters_of_files.end(),
                     [&](char16_t delimiter) {
                         return survey.holds(delimiter) && separates_nearly_all(lines, delimiter);
                     });
    return found == common_delimiters_of_files.end() ? u'\0' : *found;
}

/// Whether a reading cuts all rows of the text alike, and at tabs.
bool is_whole_table_at_tabs(const Reading& reading) {
    return reading.delimiter == u"\t" && reading.run.kept == reading.run.all;
}

bool is_good_at_common_delimiter(const Reading& reading) {
    constexpr double good = 0.5;
    return reading.score >= good && holds(common_delimiters_of_files, reading.delimiter);
}

} // namespace

void Advisor::read_separators() {
    if (settings_.delimiter) {
        read_under_quotes(named_separator(survey_, *settings_.delimiter));
    } else if (may_be(StrategyMode::delimited)) {
        read_suggested_separators();
    }
}

void Advisor::read_suggested_separators() {
    for (const Separator& separator : suggested_separators(survey_)) {
        read_separator(separator);
    }
    read_delimiters_of_host();
    if (settings_.layout && readings_.empty()) {
        read_under_quotes(named_separator(survey_, u" "));
    }
}

/// Delimiters that the host has seen in other texts are tried where they occur.
void Advisor::read_delimiters_of_host() {
    for (const std::u16string& delimiter : settings_.delimiters) {
        if (occurs(survey_, delimiter)) {
            read_under_quotes(named_separator(survey_, delimiter));
        }
    }
}

/// A sign that is frequent in ordinary text is not read once a better one has made a table.
void Advisor::read_separator(const Separator& separator) {
    if (can_still_win(separator.prior)) {
        read_under_quotes(separator);
    }
}

void Advisor::read_under_quotes(const Separator& separator) {
    if (settings_.quote) {
        add_delimited(separator, *settings_.quote);
        return;
    }
    const std::size_t before = readings_.size();
    add_delimited(separator, usual_quote);
    const bool fits = readings_.size() > before && !has_odd_quotes(readings_.back());
    if (survey_.holds(usual_quote) && !fits) {
        add_delimited(separator, 0);
    }
    read_under_other_quotes(separator);
}

void Advisor::read_under_other_quotes(const Separator& separator) {
    for (const char16_t quote : settings_.quotes) {
        if (frames(quote, separator)) {
            add_delimited(separator, quote);
        }
    }
}

/// Whether a quote stands around the fields between a separator.
bool Advisor::frames(char16_t quote, const Separator& separator) const {
    return frames_fields(survey_, quote, separator.text) ||
           (quote == apostrophe &&
            frames_some_fields(*lines_->field_array(), quote, separator.text));
}

void Advisor::read_blanks() {
    const double prior = survey_.holds(u'\t') ? weights::of_blanks_and_tabs : weights::of_blanks;
    if (!may_win(StrategyMode::space_aligned, prior) || !has_blanks() || are_tabs_all_blanks()) {
        return;
    }
    add_blank_separated(settings_.quote.value_or(usual_quote), prior);
    if (!settings_.quote && survey_.holds(apostrophe)) {
        add_blank_separated(apostrophe, prior);
    }
}

/// Rows may have their delimiter on every line and yet not keep a width, as where fields were lost.
/// Nothing else shows a table then.
void Advisor::read_ragged_rows() {
    if (settings_.delimiter || !may_win(StrategyMode::delimited, weights::of_lines)) {
        return;
    }
    const char16_t delimiter = delimiter_of_all_lines(*lines_->field_array(), survey_);
    if (delimiter == 0 || !may_read_more()) {
        return;
    }
    Reading reading =
        begin_delimited(std::u16string(1, delimiter), settings_.quote.value_or(usual_quote));
    read(reading.strategy);
    grade_ragged_rows(reading, context());
    keep_graded(std::move(reading));
}

void Advisor::add_delimited(const Separator& separator, char16_t quote) {
    if (!separator.text.empty() && may_read_more()) {
        add_rows(begin_delimited(separator.text, quote), separator.prior);
    }
}

/// A delimited reading that is yet to be read.
Reading Advisor::begin_delimited(const std::u16string& delimiter, char16_t quote) const {
    Reading reading;
    reading.mode = StrategyMode::delimited;
    reading.delimiter = delimiter;
    reading.quote = quote;
    reading.strategy = std::make_shared<DelimitedStrategy>(options_with(quote), type_options_,
                                                           std::vector<std::u16string>{delimiter});
    return reading;
}

void Advisor::add_blank_separated(char16_t quote, double prior) {
    if (may_read_more()) {
        add_rows(begin_blank_separated(quote), prior);
    }
}

/// A reading cut at blanks that is yet to be read.
Reading Advisor::begin_blank_separated(char16_t quote) const {
    Reading reading;
    reading.mode = StrategyMode::space_aligned;
    reading.quote = quote;
    reading.strategy = std::make_shared<SpaceAlignedStrategy>(options_with(quote), type_options_);
    return reading;
}

void Advisor::add_rows(Reading&& reading, double prior) {
    read(reading.strategy);
    grade_rows(reading, prior, context());
    keep_graded(std::move(reading));
}

/// Keeps a reading that shows a table.
void Advisor::keep_graded(Reading&& reading) {
    if (reading.score > 0) {
        readings_.push_back(std::move(reading));
    }
}

/// Whether tabs are the only blanks of a table that was found at them: it would be cut alike.
bool Advisor::are_tabs_all_blanks() const {
    return !settings_.layout && survey_.with_blank == 0 &&
           std::any_of(readings_.begin(), readings_.end(), is_whole_table_at_tabs);
}

/// Whether a good table was found at a delimiter that stands on nearly all lines. Cells that are
/// cut at blanks would hold that delimiter then, and cannot look better.
bool Advisor::has_delimited_table() const {
    constexpr double nearly_all = 0.9;
    return survey_.share_of_common_delimiter() >= nearly_all &&
           std::any_of(readings_.begin(), readings_.end(), is_good_at_common_delimiter);
}

} // namespace textio::advice
