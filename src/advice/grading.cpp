#include "advice/grading.hpp"

#include "advice/counts.hpp"
#include "advice/flush_columns.hpp"
#include "advice/lines.hpp"
#include "advice/name_words.hpp"
#include "advice/number_shape.hpp"
#include "advice/tagged_records.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
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

bool is_ruler(std::span<const Field> row) {
    return row.size() == 1 && says_nothing(row.front().view());
}

/// A ruler that frames the table is passed over: it fits as little under any delimiter.
std::size_t width_of_first_row(const FieldArray& sample) {
    std::size_t line = 0;
    while (line < sample.line_count() &&
           (sample.line(line).empty() || is_ruler(sample.line(line)))) {
        ++line;
    }
    return line < sample.line_count() ? sample.line(line).size() : 0;
}

/// Words with single blanks between them are text, unless the first row names columns.
double blanks_term(const Reading& reading, const FieldArray& sample, const Survey& survey) {
    if (survey.mostly_has_runs() || reading.figures.typed_columns != 0) {
        return 1;
    }
    const auto row = first_row_of(sample, reading.run);
    std::vector<std::u16string_view> first(row.size());
    std::transform(row.begin(), row.end(), first.begin(), std::mem_fn(&Field::view));
    return names_text_columns(first, reading.grid) ? 1 : weights::words_at_blanks;
}

bool could_be_name(std::u16string_view name, CellJudge& judge) {
    constexpr std::size_t longest_name = 40;
    return has_letter(name) && name.size() <= longest_name && !is_typed(judge.judge(name));
}

/// Whether all fields of a row could be names: short texts with letters, no numbers and no dates.
bool could_be_names(std::span<const Field> row, const GradingContext& context) {
    CellJudge judge(*context.memory, u'"');
    return std::all_of(row.begin(), row.end(), [&](const Field& field) {
        return could_be_name(bare(field.view()), judge);
    });
}

bool ignores_quotes(const Reading& reading, const Survey& survey) {
    return reading.quote == 0 && survey.holds(u'"');
}

void leave_out_empty_edges(Reading& reading, std::span<const Field> first_row) {
    reading.edges = empty_edges_of(reading.grid, first_row);
    if (reading.edges.are_any()) {
        reading.grid = without_edges(reading.grid, reading.edges);
    }
}

/// Whether the cuts are none, be they at the blanks of a text or at decimal commas.
void weigh_cuts(Reading& reading, const FieldArray& sample, const GradingContext& context) {
    if (reading.is_blank_separated()) {
        reading.flush = flush_share(*context.lines, sample, reading.run, reading.figures);
        reading.terms[TermKind::context] = blanks_term(reading, sample, *context.survey);
    } else if (reading.delimiter == u"," && cuts_numbers(reading.grid)) {
        reading.terms[TermKind::context] = weights::cut_numbers;
    }
}

/// The columns of the run but for those that are left out. A lone delimiter at the end of each line
/// is reported as the reader gives it: as a column.
std::size_t columns_without_edges(Reading& reading) {
    if (reading.edges.trailing == 1 && !reading.edges.leading) {
        reading.edges.trailing = 0;
    }
    return reading.run.width - reading.edges.trailing - one_if(reading.edges.leading);
}

/// Grades the table that `run` shows.
void grade_run(Reading& reading, const RegularRun& run, double prior,
               const GradingContext& context) {
    const FieldArray& sample = *reading.strategy->field_array();
    reading.run = run;
    reading.grid = grid_of(sample, run);
    if (reading.is_delimited()) {
        leave_out_empty_edges(reading, first_row_of(sample, run));
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
    terms[TermKind::first] =
        weights::if_so(width_of_first_row(sample) != run.width, weights::first_line_off);
    terms[TermKind::quotes] =
        weights::if_so(ignores_quotes(reading, *context.survey), weights::quotes_ignored);
    weigh_cuts(reading, sample, context);
    reading.columns = columns_without_edges(reading);
    reading.score = terms.product();
}

/// Grades rows of which each begins with the code of its kind.
void grade_tagged(Reading& reading, double prior, const GradingContext& context) {
    CellJudge judge(*context.memory, reading.quote);
    const TaggedRecords found = find_tagged_records(*reading.strategy->field_array(), judge);
    if (found.tagged < 3 || !found.are_records(lines_end_alike(*context.lines))) {
        return;
    }
    const double share = share_of(found.tagged, found.rows);
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

/// Grades a reading under another idea of what its table is, and keeps the better grade.
template <class Grade>
void keep_if_better(Reading& reading, const Reading& ungraded, Grade grade) {
    Reading other = ungraded;
    grade(other);
    if (other.score > reading.score) {
        reading = std::move(other);
    }
}

/// Whether the last run of rows is another table than the best run.
bool is_another_table(const RegularRun& last, const RegularRun& best) {
    return last.width > 1 && last.kept > 1 && last.first_line != best.first_line;
}

/// Whether the first row names columns that the others may lack.
bool is_headed(const RegularRun& run, const FieldArray& sample, const GradingContext& context) {
    return run.width != 0 && could_be_names(first_row_of(sample, run), context);
}

/// Whether all that the first of two columns does is stand empty on most lines: source code and
/// outlines are indented so.
bool is_indentation(const Reading& reading) {
    return reading.grid.columns == 2 && !reading.positions.has_ruler &&
           reading.figures.columns.front().filled * 2 <= reading.grid.rows();
}

} // namespace

void grade_rows(Reading& reading, double prior, const GradingContext& context) {
    const FieldArray& sample = *reading.strategy->field_array();
    const Reading ungraded = reading;
    const auto keep_run_if_better = [&](const RegularRun& run) {
        keep_if_better(reading, ungraded,
                       [&](Reading& other) { grade_run(other, run, prior, context); });
    };
    const RegularRun best = find_regular_run(sample, reading.is_delimited());
    if (best.width > 1) {
        grade_run(reading, best, prior, context);
    }
    const RegularRun last = find_last_run(sample);
    if (is_another_table(last, best)) {
        keep_run_if_better(last);
    }
    if (!reading.is_delimited() || best.kept == best.all) {
        return;
    }
    const RegularRun headed = find_headed_run(sample);
    if (is_headed(headed, sample, context)) {
        keep_run_if_better(headed);
    }
    if (reading.delimiter != u",") {
        keep_if_better(reading, ungraded,
                       [&](Reading& other) { grade_tagged(other, prior, context); });
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
    const bool has_delimiter = context.survey->share_of_common_delimiter() > 0.5;
    Terms& terms = reading.terms;
    terms[TermKind::prior] = prior_of(positions);
    terms[TermKind::context] = weights::if_so(has_delimiter, weights::delimiter_beside) *
                               weights::if_so(!positions.has_padding, weights::never_padded);
    terms[TermKind::rows] = rows_term(
        positions.kept, positions.are_shown() ? weights::rows_doubt : weights::positions_doubt);
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
