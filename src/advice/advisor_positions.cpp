#include "advice/advisor.hpp"

#include "advice/given.hpp"
#include "advice/one_length.hpp"
#include "advice/weights.hpp"

#include <algorithm>
#include <utility>

namespace textio::advice {

using enums::StrategyMode;

namespace {

/// Columns at positions hold no tabs; so many lines with some are too many.
constexpr double some_tabs = 0.1;

/// Whether a reading at blanks explains the whole text.
bool explains_all_at_blanks(const Reading& reading) {
    return reading.is_blank_separated() && reading.run.kept == reading.run.all &&
           reading.flush >= 0.95 && reading.figures.typed_columns * 2 >= reading.columns;
}

} // namespace

void Advisor::find_columns_at_positions() {
    if (!may_win(StrategyMode::fixed_width, weights::of_ruled_positions)) {
        return;
    }
    std::vector<Reading> begun;
    if (has_given_widths()) {
        begun.push_back(begin_positions(
            positions_of_widths(*settings_.widths, *lines_->field_array()), context()));
    } else if (survey_.share(u'\t') <= some_tabs && !blanks_will_do()) {
        begun = begin_shown_positions();
    }
    grade_best_positions(std::move(begun));
}

/// Begins to grade the columns that blanks show, and records of one length.
std::vector<Reading> Advisor::begin_shown_positions() {
    const FieldArray& lines = *lines_->field_array();
    std::vector<Positions> shown = has_blanks() ? find_positions(lines) : std::vector<Positions>();
    if (can_still_win(weights::of_one_length)) {
        if (auto records = find_records_of_one_length(lines)) {
            shown.push_back(std::move(*records));
        }
    }
    std::vector<Reading> begun;
    begun.reserve(shown.size());
    for (Positions& positions : shown) {
        begun.push_back(begin_positions(std::move(positions), context()));
    }
    return begun;
}

/// Looks at the cells of those columns that can still be the best, the most promising first.
void Advisor::grade_best_positions(std::vector<Reading> begun) {
    std::stable_sort(begun.begin(), begun.end(), is_better);
    double best = 0;
    for (Reading& reading : begun) {
        if (reading.score > best) {
            reading.quote = options_.quote;
            grade_positions(reading, context());
            best = std::max(best, reading.score);
            keep_graded(std::move(reading));
        }
    }
}

/// Whether blanks explain the text so well that positions can add nothing.
bool Advisor::blanks_will_do() const {
    return std::any_of(readings_.begin(), readings_.end(), explains_all_at_blanks);
}

} // namespace textio::advice
