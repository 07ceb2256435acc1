#include "advice/grading.hpp"

#include "advice/flush_columns.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "advice/tagged_records.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace textio::advice {

namespace {

/// That few rows prove little.
double rows_term(std::size_t rows, double doubt) {
    const auto count = static_cast<double>(rows);
    return count / (count + doubt);
}

/// That columns which agree prove more the more they are.
double columns_term(std::size_t columns) {
    const auto count = static_cast<double>(columns);
    return columns < 2 ? 0 : std::sqrt((count - 1) / count);
}

/// A table usually is most of the text, but a long preamble is no great fault. Blanks stand in any
/// text: a table that they make should be more of it.
double coverage_term(double coverage, bool at_blanks) {
    return std::pow(coverage, at_blanks ? weights::coverage_at_blanks : weights::coverage);
}

double squared(double value) {
    return value * value;
}

/// A ruler that frames the table is passed over: it fits as little under any delimiter.
std::size_t width_of_first_row(const FieldArray& sample) {
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        const auto fields = sample.line(line);
        if (!fields.empty() && (fields.size() > 1 || !says_nothing(fields.front().view()))) {
            return fields.size();
        }
    }
    return 0;
}

/// Words with single blanks between them are text, unless the first row names columns.
double blanks_term(const Reading& reading, const FieldArray& sample, const Survey& survey) {
    const bool has_runs = survey.with_runs * 2 >= survey.lines.size();
    if (has_runs || reading.figures.typed_columns != 0) {
        return 1;
    }
    std::vector<std::u16string_view> first;
    for (const Field& field : first_row_of(sample, reading.run)) {
        first.push_back(field.view());
    }
    return names_text_columns(first, reading.grid) ? 1 : weights::words_at_blanks;
}

/// Whether all fields of a row could be names: short texts with letters, no numbers and no dates.
bool could_be_names(std::span<const Field> row, const GradingContext& context) {
    constexpr std::size_t longest_name = 40;
    CellJudge judge(*context.memory, u'"');
    return std::all_of(row.begin(), row.end(), [&](const Field& field) {
        const std::u16string_view name = bare(field.view());
        const CellKind kind = judge.judge(name);
        return has_letter(name) && name.size() <= longest_name && kind != CellKind::number &&
               kind != CellKind::date;
    });
}

/// Grades the table that `run` shows.
void grade_run(Reading& reading, const RegularRun& run, double prior,
               const GradingContext& context) {
    const FieldArray& sample = *reading.strategy->field_array();
    reading.run = run;
    reading.grid = grid_of(sample, run);
    if (reading.is_delimited()) {
        reading.edges = empty_edges_of(reading.grid, first_row_of(sample, run));
        if (reading.edges.leading || reading.edges.trailing != 0) {
            reading.grid = without_edges(reading.grid, reading.edges);
        }
    }
    if (reading.grid.columns < 2) {
        return;
    }
    CellJudge judge(*context.memory, reading.quote);
    reading.figures = figures_of(reading.grid, judge);
    Terms& terms = reading.terms;
    terms[TermKind::consistency] = squared(run.consistency());
    terms[TermKind::coverage] = coverage_term(run.coverage(), reading.is_blank_separated());
    terms[TermKind::types] = reading.figures.types;
    terms[TermKind::columns] = columns_term(reading.grid.columns);
    terms[TermKind::rows] = rows_term(run.kept + run.short_rows, weights::rows_doubt);
    terms[TermKind::prior] = prior;
    if (width_of_first_row(sample) != run.width) {
        terms[TermKind::first] = weights::first_line_off;
    }
    if (reading.quote == 0 && context.survey->holds(u'"')) {
        terms[TermKind::quotes] = weights::quotes_ignored;
    }
    if (reading.is_blank_separated()) {
        reading.flush = flush_share(*context.lines, sample, run, reading.figures);
        terms[TermKind::context] = blanks_term(reading, sample, *context.survey);
    } else if (reading.delimiter == u"," && cuts_numbers(reading.grid)) {
        terms[TermKind::context] = weights::cut_numbers;
    }
    // A lone delimiter at the end of each line is reported as the reader gives it: as a column.
    if (reading.edges.trailing == 1 && !reading.edges.leading) {
        reading.edges.trailing = 0;
    }
    reading.columns = run.width - reading.edges.trailing - (reading.edges.leading ? 1 : 0);
    reading.score = terms.product();
}

/// Grades rows of which each begins with the code of its kind.
void grade_tagged(Reading& reading, double prior, const GradingContext& context) {
    CellJudge judge(*context.memory, reading.quote);
    const TaggedRecords found = find_tagged_records(*reading.strategy->field_array(), judge);
    if (found.tagged < 3 || !found.are_records(lines_end_alike(*context.lines))) {
        return;
    }
    const double share = static_cast<double>(found.tagged) / static_cast<double>(found.rows);
    reading.run.first_line = found.first_line;
    reading.columns = found.widest;
    Terms& terms = reading.terms;
    terms[TermKind::consistency] = weights::of_tagged_records * squared(share);
    terms[TermKind::types] = found.types;
    terms[TermKind::columns] = columns_term(found.widest);
    terms[TermKind::rows] = rows_term(found.tagged, weights::rows_doubt);
    terms[TermKind::prior] = prior;
    terms[TermKind::first] = found.starts_text ? 1 : weights::first_line_off;
    reading.score = terms.product();
}

double prior_of(const Positions& positions) {
    if (positions.has_no_columns) {
        return weights::of_one_length;
    }
    if (positions.has_ruler) {
        return weights::of_ruled_positions;
    }
    if (positions.has_heading) {
        return weights::of_named_positions;
    }
    return positions.is_padded ? weights::of_padded_positions : weights::of_positions;
}

/// Whether all that the first of two columns does is stand empty on most lines: source code and
/// outlines are indented so.
bool is_indentation(const Reading& reading) {
    return reading.grid.columns == 2 && !reading.positions.has_ruler &&
           reading.figures.columns[0].filled * 2 <= reading.grid.rows();
}

} // namespace

void grade_rows(Reading& reading, double prior, const GradingContext& context) {
    const FieldArray& sample = *reading.strategy->field_array();
    const Reading ungraded = reading;
    const auto keep_better = [&](Reading other) {
        if (other.score > reading.score) {
            reading = std::move(other);
        }
    };
    const RegularRun best = find_regular_run(sample, reading.is_delimited());
    if (best.width > 1) {
        grade_run(reading, best, prior, context);
    }
    const RegularRun last = find_last_run(sample);
    if (last.width > 1 && last.kept > 1 && last.first_line != best.first_line) {
        Reading other = ungraded;
        grade_run(other, last, prior, context);
        keep_better(std::move(other));
    }
    if (reading.is_delimited() && best.kept != best.all) {
        const RegularRun headed = find_headed_run(sample);
        if (headed.width != 0 && could_be_names(first_row_of(sample, headed), context)) {
            Reading other = ungraded;
            grade_run(other, headed, prior, context);
            keep_better(std::move(other));
        }
    }
    const bool can_be_tagged = reading.is_delimited() && reading.delimiter != u",";
    if (can_be_tagged && best.kept != best.all) {
        Reading other = ungraded;
        grade_tagged(other, prior, context);
        keep_better(std::move(other));
    }
}

void grade_ragged_rows(Reading& reading, const GradingContext& context) {
    reading.run = find_ragged_run(*reading.strategy->field_array());
    const bool is_even = reading.run.kept * 4 > reading.run.rows * 3; // and was graded as such
    if (reading.run.width < 2 || is_even) {
        return;
    }
    CellJudge judge(*context.memory, reading.quote);
    reading.grid = grid_of(*reading.strategy->field_array(), reading.run);
    reading.figures = figures_of(reading.grid, judge);
    reading.columns = reading.run.width;
    reading.terms[TermKind::prior] = weights::of_ragged_rows;
    reading.score = reading.terms.product();
}

Reading begin_positions(Positions positions, const GradingContext& context) {
    Reading reading;
    reading.mode = enums::StrategyMode::fixed_width;
    reading.quote = u'"';
    reading.columns = positions.starts.size();
    Terms& terms = reading.terms;
    terms[TermKind::prior] = prior_of(positions);
    if (context.survey->share_of_common_delimiter() > 0.5) {
        terms[TermKind::context] = weights::delimiter_beside;
    }
    if (!positions.has_padding) {
        terms[TermKind::context] *= weights::never_padded;
    }
    const bool has_sign =
        positions.has_ruler || positions.has_heading || positions.has_gaps || positions.is_padded;
    terms[TermKind::rows] =
        rows_term(positions.kept, has_sign ? weights::rows_doubt : weights::positions_doubt);
    terms[TermKind::consistency] = squared(positions.consistency());
    if (!positions.has_no_columns) {
        terms[TermKind::coverage] = coverage_term(positions.coverage(), false);
        terms[TermKind::alignment] = squared(positions.alignment);
        terms[TermKind::columns] = columns_term(reading.columns);
    }
    reading.positions = std::move(positions);
    reading.score = terms.product();
    return reading;
}

void grade_positions(Reading& reading, const GradingContext& context) {
    if (reading.positions.has_no_columns) {
        return;
    }
    CellJudge judge(*context.memory, reading.quote);
    reading.grid = grid_of(*context.lines, reading.positions);
    reading.figures = figures_of(reading.grid, judge);
    reading.terms[TermKind::types] = reading.figures.types;
    if (is_indentation(reading)) {
        reading.terms[TermKind::context] *= weights::indentation;
    }
    reading.score = reading.terms.product();
}

} // namespace textio::advice
