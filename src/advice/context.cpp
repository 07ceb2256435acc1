#include "advice/grading.hpp"

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

/// Marks that stand between the parts of sentences and statements.
bool is_punctuation(const Reading& reading) {
    constexpr std::u16string_view marks = u",:=\u3001\u3002\uFF0C";
    return reading.is_delimited() && reading.delimiter.size() == 1 &&
           marks.find(reading.delimiter) != std::u16string_view::npos;
}

/// Whether a reading has nothing but words in its cells.
bool holds_words_alone(const Reading& reading) {
    return reading.figures.typed_columns == 0 && reading.figures.quoted == 0;
}

/// Marks of texts that are written without blanks.
bool ends_sentences(const Reading& reading) {
    constexpr std::u16string_view marks = u"\u3001\u3002\uFF0C";
    return reading.delimiter.size() == 1 &&
           marks.find(reading.delimiter) != std::u16string_view::npos;
}

/// Whether a reading cuts at the marks in a log's stamps.
bool cuts_stamps(const Reading& reading, const TextKind& text) {
    return reading.delimiter == u":" || (reading.delimiter == u"," && text.log_has_commas);
}

/// Logs, prose and code hold blanks, and marks of punctuation, that separate nothing.
double text_factor(const Reading& reading, const TextKind& text) {
    const bool at_marks = is_punctuation(reading);
    const bool at_blanks = reading.is_blank_separated() || reading.is_at_positions();
    const bool is_prose = text.is_prose || ends_sentences(reading);
    double factor = 1;
    if (text.is_log && (at_blanks || cuts_stamps(reading, text))) {
        factor *= weights::log;
    }
    if (is_prose && holds_words_alone(reading) && (at_marks || reading.is_blank_separated())) {
        factor *= weights::prose;
    }
    if (text.is_code && (at_marks || at_blanks)) {
        factor *= weights::code;
    }
    return factor;
}

bool are_columns(const Reading& reading) {
    return reading.is_at_positions() && !reading.positions.has_no_columns;
}

/// Where columns stand flush, a cut at a blank that does not is a blank inside a text.
void weigh_blanks_by_positions(std::vector<Reading>& readings, const Survey& survey) {
    if (survey.with_runs * 2 < survey.lines.size()) {
        return;
    }
    constexpr double most_flush = 0.85;
    constexpr double near = 0.3;
    for (Reading& blanks : readings) {
        const bool has_better_columns =
            blanks.is_blank_separated() &&
            std::any_of(readings.begin(), readings.end(), [&](const Reading& fixed) {
                return are_columns(fixed) && fixed.positions.alignment > most_flush &&
                       fixed.columns < blanks.columns && fixed.score > near * blanks.score;
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

/// Positions that explain nothing which blanks alone do not are not worth their widths. Fewer
/// columns with wide gaps do explain something: what single blanks stand in.
void weigh_positions_by_blanks(std::vector<Reading>& readings) {
    constexpr double all = 0.995;
    constexpr double mostly_flush = 0.9;
    for (Reading& fixed : readings) {
        const std::size_t columns = filled_columns(fixed);
        const bool blanks_will_do =
            are_columns(fixed) &&
            std::any_of(readings.begin(), readings.end(), [&](const Reading& blanks) {
                return blanks.is_blank_separated() && blanks.run.consistency() >= all &&
                       (fixed.positions.has_gaps ? columns == blanks.columns
                                                 : columns <= blanks.columns) &&
                       blanks.flush > mostly_flush;
            });
        if (blanks_will_do) {
            weigh(fixed, weights::blanks_will_do);
        }
    }
}

/// Whether a text is a date or a time; two of them with a delimiter between are two values.
bool is_single_date(std::u16string_view text, DateShapes& dates) {
    if (!dates.is_date(text)) {
        return false;
    }
    const std::size_t at = text.find_first_of(common_delimiters_of_files);
    return at == std::u16string_view::npos || !dates.is_date(text.substr(0, at)) ||
           !dates.is_date(text.substr(at + 1));
}

} // namespace

void grade_lines(Reading& reading, const GradingContext& context) {
    reading.columns = 1;
    const Survey& survey = *context.survey;
    constexpr std::size_t longest_value = 80;
    constexpr std::size_t longest_number = 24;
    constexpr std::size_t most_lines = 32;
    const std::size_t step = survey.lines.size() / (most_lines + 1) + 1;
    std::size_t looked_at = 0;
    std::size_t single = 0;
    for (std::size_t line = 0; line < survey.lines.size(); line += step) {
        const std::u16string_view text = trimmed(survey.lines[line]);
        ++looked_at;
        if (text.size() > longest_value) {
            continue;
        }
        const bool is_single =
            looks_like_number(text)
                ? text.size() <= longest_number && text.find(u',') == std::u16string_view::npos
                : is_single_date(text, context.memory->dates()) || is_single_value(text);
        single += is_single ? 1U : 0U;
    }
    const double share =
        looked_at == 0 ? 0 : static_cast<double>(single) / static_cast<double>(looked_at);
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
