/// \file
/// Whether the columns that blanks give stand flush, as those of an aligned table do.
#pragma once

#include "advice/cell_figures.hpp"
#include "advice/regular_run.hpp"
#include "textio/field.hpp"

namespace textio::advice {

/// The share of cells that start or end where most of their column do, as the mean over the
/// columns. Columns of numbers and dates count as flush. `lines` is the text read line by line with
/// the same comments as `sample`.
[[nodiscard]] double flush_share(const FieldArray& lines, const FieldArray& sample,
                                 const RegularRun& run, const CellFigures& figures);

} // namespace textio::advice
