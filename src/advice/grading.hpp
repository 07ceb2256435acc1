/// \file
/// Grades readings: each factor of a score is a small function with a reason.
#pragma once

#include "advice/cell_kind.hpp"
#include "advice/reading.hpp"
#include "advice/survey.hpp"
#include "textio/field.hpp"

#include <vector>

namespace textio::advice {

/// What all readings of a text are graded against.
struct GradingContext {
    const FieldArray* lines = nullptr; ///< the text read as one field a line, without comments
    const Survey* survey = nullptr;    ///< of these lines
    CellMemory* memory = nullptr;
};

/// Grades a delimited or space-aligned reading with its sample: finds its table, and fills in all
/// that follows from it. `prior` is that of its separator. The score stays 0 where there is none.
void grade_rows(Reading& reading, double prior, const GradingContext& context);

/// Grades a delimited reading with its sample whose rows do not agree: its table is all of it, as
/// wide as most rows are. The score stays 0 if these have one field, or if nearly all rows are as
/// wide.
void grade_ragged_rows(Reading& reading, const GradingContext& context);

/// Begins to grade columns at fixed positions: all but the look at their cells, so that the score
/// is the most that these columns can reach.
[[nodiscard]] Reading begin_positions(Positions positions, const GradingContext& context);

/// Looks at the cells, and completes the score.
void grade_positions(Reading& reading, const GradingContext& context);

/// Grades the reading of one field a line.
void grade_lines(Reading& reading, const GradingContext& context);

/// What the text as a whole says of the readings, and what the readings say of each other.
void weigh_against_context(std::vector<Reading>& readings, const GradingContext& context);

} // namespace textio::advice
