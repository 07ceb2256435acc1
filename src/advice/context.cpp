#include "advice/grading.hpp"

#include "advice/counts.hpp"
#include "advice/lines.hpp"
#include "advice/number_shape.hpp"
#include "advice/text_kind.hpp"
#include "advice/weights.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

void weigh(Reading& reading, double factor) {
    reading.terms[TermKind::context] *= factor;
    reading.score = reading.terms.product();
}

/// Whether a delimiter is one of some signs.
bool is_one_of(std::u16string_view signs, std::u16string_view delimiter) {
    return delimiter.size() == 1 && holds(signs, delimiter);
}

/// Marks that stand between the parts of sentences and statements.
bool is_punctuation(const Reading& reading) {
    return reading.is_delimited() && is_one_of(u",:=\u3001\u3002\uFF0C", reading.delimiter);
}

/// Whether a reading has nothing but words in its cells.
bool holds_words_alone(const Reading& reading) {
    return reading.figures.typed_columns == 0 && reading.figures.quoted == 0;
}

/// Marks of texts that are written without blanks.
bool ends_sentences(const Reading& reading) {
    return is_one_of(u"\u3001\u3002\uFF0C", reading.delimiter);
}

/// Whether a reading cuts at the marks in a log's stamps.
bool cuts_stamps(const Reading& reading, const TextKind& text) {
    return reading.delimiter == u":" || (reading.delimiter == u"," && text.log_has_commas);
}

/// Whether a reading cuts at the marks or the blanks of sentences.
bool cuts_prose(const Reading& reading, const TextKind& text) {
    const bool is_prose = text.is_prose || ends_sentences(reading);
    return is_prose && holds_words_alone(reading) &&
           (reading.is_blank_separated() || is_punctuation(reading));
}

/// Logs, prose and code hold blanks, and marks of punctuation, that separate nothing.
double text_factor(const Reading& reading, const TextKind& text) {
    const bool at_blanks = reading.is_blank_separated() || reading.is_at_positions();
    const bool cuts_log = text.is_log && (at_blanks || cuts_stamps(reading, text));
    const bool cuts_code = text.is_code && (at_blanks || is_punctuation(reading));
    return weights::if_so(cuts_log, weights::log) *
           weights::if_so(cuts_prose(reading, text), weights::prose) *
           weights::if_so(cuts_code, weights::code);
}

bool are_columns(const Reading& reading) {
    return reading.is_at_positions() && !reading.positions.has_no_columns;
}

/// Whether columns that stand flush are fewer than those of a reading at blanks, and not much
/// worse.
bool shows_blanks_inside(const Reading& fixed, const Reading& blanks) {
    constexpr double most_flush = 0.85;
    constexpr double near = 0.3;
    return are_columns(fixed) && fixed.positions.alignment > most_flush &&
           fixed.columns < blanks.columns && fixed.score > near * blanks.score;
}

/// Where columns stand flush, a cut at a blank that does not is a blank inside a text.
void weigh_blanks_by_positions(std::vector<Reading>& readings, const Survey& survey) {
    if (!survey.mostly_has_runs()) {
        return;
    }
    for (Reading& blanks : readings) {
        const bool has_better_columns =
            blanks.is_blank_separated() &&
            std::any_of(readings.begin(), readings.end(), [&blanks](const Reading& fixed) {
                return shows_blanks_inside(fixed, blanks);
            });
        if (has_better_columns) {
            weigh(blanks, blanks.flush * blanks.flush);
        }
    }
}

/// Columns that hold something: a word of a heading over nothing makes none.
std::size_t filled_columns(const Reading& reading) {
    return static_cast<std::size_t>(
        std::count_if(reading.figures.columns.begin(), reading.figures.columns.end(),
                      [](const ColumnFigures& column) { return column.filled != 0; }));
}

/// Whether a reading at blanks gives columns as well as positions do of which so many are filled.
/// Fewer columns with wide gaps tell more: that single blanks stand within cells.
bool gives_as_well(const Reading& blanks, const Reading& fixed, std::size_t columns) {
    constexpr double all = 0.995;
    constexpr double mostly_flush = 0.9;
    return blanks.is_blank_separated() && blanks.run.consistency() >= all &&
           blanks.flush > mostly_flush &&
           (fixed.positions.has_gaps ? columns == blanks.columns : columns <= blanks.columns);
}

/// Positions that explain nothing which blanks alone do not are not worth their widths.
void weigh_positions_by_blanks(std::vector<Reading>& readings) {
    for (Reading& fixed : readings) {
        const std::size_t columns = filled_columns(fixed);
        const bool blanks_will_do =
            are_columns(fixed) &&
            std::any_of(readings.begin(), readings.end(), [&](const Reading& blanks) {
                return gives_as_well(blanks, fixed, columns);
            });
        if (blanks_will_do) {
            weigh(fixed, weights::blanks_will_do);
        }
    }
}

/// Whether two dates have a delimiter between them.
bool is_two_dates(std::u16string_view text, DateShapes& dates) {
    const std::size_t at = text.find_first_of(common_delimiters_of_files);
    return at != std::u16string_view::npos && dates.is_date(text.substr(0, at)) &&
           dates.is_date(text.substr(at + 1));
}

/// Whether a text is a date or a time; two of them with a delimiter between are two values.
bool is_single_date(std::u16string_view text, DateShapes& dates) {
    return dates.is_date(text) && !is_two_dates(text, dates);
}

/// A short number that no comma cuts.
bool is_single_number(std::u16string_view number) {
    constexpr std::size_t longest_number = 24;
    return number.size() <= longest_number && !holds(number, u',');
}

/// Whether a line holds one value, and not several that nothing separates.
bool holds_single_value(std::u16string_view text, DateShapes& dates) {
    constexpr std::size_t longest_value = 80;
    if (text.size() > longest_value) {
        return false;
    }
    return looks_like_number(text) ? is_single_number(text)
                                   : is_single_date(text, dates) || is_single_value(text);
}

} // namespace

void grade_lines(Reading& reading, const GradingContext& context) {
    reading.columns = 1;
    const auto& lines = context.survey->lines;
    constexpr std::size_t most_lines = 32;
    const std::size_t step = lines.size() / (most_lines + 1) + 1;
    std::size_t looked_at = 0;
    std::size_t single = 0;
    for (std::size_t line = 0; line < lines.size(); line += step) {
        ++looked_at;
        single += one_if(holds_single_value(trimmed(lines[line]), context.memory->dates()));
    }
    const double share = share_of(single, looked_at);
    reading.terms[TermKind::prior] = weights::of_lines + weights::of_single_values * share * share;
    reading.score = reading.terms.product();
}

void weigh_against_context(std::vector<Reading>& readings, const GradingContext& context) {
    weigh_blanks_by_positions(readings, *context.survey);
    weigh_positions_by_blanks(readings);
    const TextKind text = kind_of_text(*context.survey);
    for (Reading& reading : readings) {
        weigh(reading, text_factor(reading, text));
        if (reading.is_line_by_line() && text.is_log) {
            reading.terms[TermKind::prior] =
                std::max(reading.terms[TermKind::prior], weights::of_log_lines);
            reading.score = reading.terms.product();
        }
    }
}

} // namespace textio::advice
