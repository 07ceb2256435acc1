/// \file
/// The run of rows that best keeps one width: where a reading shows its table.
#pragma once

#include "textio/field.hpp"

#include <cstddef>

namespace textio::advice {

/// A run of rows of a sample, most of which have as many fields. Rows are lines with fields.
struct RegularRun {
    std::size_t width = 0;      ///< fields of a row that keeps the width; 0 if there is no run
    std::size_t first_line = 0; ///< line of the sample with the first row of the run
    std::size_t last_line = 0;  ///< line of the sample with its last row
    std::size_t kept = 0;       ///< rows of the run that keep the width
    std::size_t short_rows = 0; ///< rows of the run that lack the last field alone
    std::size_t rows = 0;       ///< rows of the run
    std::size_t behind = 0;     ///< rows behind the run
    std::size_t all = 0;        ///< rows of the sample

    bool is_padded = false; ///< shorter rows belong to the table: they lack their last fields

    /// Whether a row of so many fields is one of the table's.
    [[nodiscard]] bool holds(std::size_t fields) const noexcept {
        return fields == width || (is_padded && fields != 0 && fields < width);
    }

    [[nodiscard]] double consistency() const noexcept; ///< kept, of the run and what is behind it
    [[nodiscard]] double coverage() const noexcept;    ///< kept, of all rows
};

/// The run of at least two fields a row with the highest sum of 1 for each row that keeps its width
/// and `-2` for each that does not.
[[nodiscard]] RegularRun find_regular_run(const FieldArray& sample, bool last_is_optional);

/// The whole sample as a run of the first row's width, if no row is wider and most are shorter, but
/// not hollow: the first row may name columns that rows lack at their ends. Otherwise none.
[[nodiscard]] RegularRun find_headed_run(const FieldArray& sample);

/// The whole sample as a run of the commonest width, the first among equals.
[[nodiscard]] RegularRun find_ragged_run(const FieldArray& sample);

/// The run of the last row's width that ends with that row: a short table under a long preamble.
[[nodiscard]] RegularRun find_last_run(const FieldArray& sample);

} // namespace textio::advice
