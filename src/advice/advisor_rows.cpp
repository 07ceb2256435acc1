#include "advice/advisor.hpp"

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

/// Whether a delimiter stands in a line where no punctuation does: a blank or nothing follows that.
bool separates(std::u16string_view line, char16_t delimiter) {
    for (std::size_t at = line.find(delimiter); at != std::u16string_view::npos;
         at = line.find(delimiter, at + 1)) {
        if (at + 1 < line.size() && line[at + 1] != u' ') {
            return true;
        }
    }
    return false;
}

/// The common delimiter that separates something on nearly all lines; 0 if none does.
char16_t delimiter_of_all_lines(const FieldArray& lines, const Survey& survey) {
    for (const char16_t delimiter : common_delimiters_of_files) {
        if (!survey.holds(delimiter)) {
            continue;
        }
        const auto with =
            std::count_if(lines.fields.begin(), lines.fields.end(),
                          [&](const Field& line) { return separates(line.view(), delimiter); });
        if (static_cast<std::size_t>(with) * 10 >= lines.fields.size() * 9) {
            return delimiter;
        }
    }
    return 0;
}

} // namespace

void Advisor::read_separators() {
    if (settings_.delimiter) {
        read_under_quotes(named_separator(survey_, *settings_.delimiter));
        return;
    }
    if (!may_be(StrategyMode::delimited)) {
        return;
    }
    for (const Separator& separator : suggested_separators(survey_)) {
        read_separator(separator);
    }
    for (const std::u16string& delimiter : settings_.delimiters) {
        if (occurs(survey_, delimiter)) {
            read_under_quotes(named_separator(survey_, delimiter));
        }
    }
    if (settings_.layout && readings_.empty()) {
        read_under_quotes(named_separator(survey_, u" "));
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
    for (const char16_t quote : settings_.quotes) {
        const bool may_frame_few = quote == apostrophe;
        if (frames_fields(survey_, quote, separator.text) ||
            (may_frame_few && frames_some_fields(*lines_->field_array(), quote, separator.text))) {
            add_delimited(separator, quote);
        }
    }
}

void Advisor::read_blanks() {
    const double prior = survey_.holds(u'\t') ? weights::of_blanks_and_tabs : weights::of_blanks;
    if (!may_be(StrategyMode::space_aligned) || !can_still_win(prior) || !has_blanks() ||
        are_tabs_all_blanks()) {
        return;
    }
    if (settings_.quote) {
        add_blank_separated(*settings_.quote, prior);
        return;
    }
    add_blank_separated(usual_quote, prior);
    if (survey_.holds(u'\'')) {
        add_blank_separated(u'\'', prior);
    }
}

/// Rows may have their delimiter on every line and yet not keep a width, as where fields were lost.
/// Nothing else shows a table then.
void Advisor::read_ragged_rows() {
    if (settings_.delimiter || !may_be(StrategyMode::delimited) ||
        !can_still_win(weights::of_lines) || !may_read_more()) {
        return;
    }
    const char16_t delimiter = delimiter_of_all_lines(*lines_->field_array(), survey_);
    if (delimiter == 0) {
        return;
    }
    Reading reading;
    reading.mode = StrategyMode::delimited;
    reading.delimiter = std::u16string(1, delimiter);
    reading.quote = settings_.quote.value_or(usual_quote);
    reading.strategy = std::make_shared<DelimitedStrategy>(
        options_with(reading.quote), type_options_, std::vector<std::u16string>{reading.delimiter});
    read(reading.strategy);
    grade_ragged_rows(reading, context());
    if (reading.score > 0) {
        readings_.push_back(std::move(reading));
    }
}

void Advisor::add_delimited(const Separator& separator, char16_t quote) {
    if (separator.text.empty() || !may_read_more()) {
        return;
    }
    Reading reading;
    reading.mode = StrategyMode::delimited;
    reading.delimiter = separator.text;
    reading.quote = quote;
    add_rows(std::move(reading),
             std::make_shared<DelimitedStrategy>(options_with(quote), type_options_,
                                                 std::vector<std::u16string>{separator.text}),
             separator.prior);
}

void Advisor::add_blank_separated(char16_t quote, double prior) {
    if (!may_read_more()) {
        return;
    }
    Reading reading;
    reading.mode = StrategyMode::space_aligned;
    reading.quote = quote;
    add_rows(std::move(reading),
             std::make_shared<SpaceAlignedStrategy>(options_with(quote), type_options_), prior);
}

void Advisor::add_rows(Reading reading, std::shared_ptr<GenericStrategy> strategy, double prior) {
    reading.strategy = std::move(strategy);
    read(reading.strategy);
    grade_rows(reading, prior, context());
    if (reading.score > 0) {
        readings_.push_back(std::move(reading));
    }
}

/// Whether tabs are the only blanks of a table that was found at them: it would be cut alike.
bool Advisor::are_tabs_all_blanks() const {
    return !settings_.layout && survey_.with_blank == 0 &&
           std::any_of(readings_.begin(), readings_.end(), [](const Reading& reading) {
               return reading.delimiter == u"\t" && reading.run.kept == reading.run.all;
           });
}

/// Whether a good table was found at a delimiter that stands on nearly all lines. Cells that are
/// cut at blanks would hold that delimiter then, and cannot look better.
bool Advisor::has_delimited_table() const {
    constexpr double nearly_all = 0.9;
    constexpr double good = 0.5;
    return survey_.share_of_common_delimiter() >= nearly_all &&
           std::any_of(readings_.begin(), readings_.end(), [](const Reading& reading) {
               return reading.score >= good && common_delimiters_of_files.find(reading.delimiter) !=
                                                   std::u16string_view::npos;
           });
}

} // namespace textio::advice
