#pragma once

#include "advised.hpp"
#include "iso_dates.hpp"
#include "plain_numbers.hpp"
#include "record_cells.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace detect_layout {

/// Makes the values of a table plain, as its columns have them: numbers with a decimal point, dates
/// as ISO has them, nothing where a text counts as missing.
class ColumnValues {
public:
    /// For the table of the best proposal. Dates are left as they are unless `iso_dates`, and in
    /// columns whose sample has a date of which day and month cannot be told apart for certain.
    ColumnValues(const Advised& advised, bool iso_dates);

    /// Replaces the values of a record. Gives whether all are of the kind of their columns, as far
    /// as that was looked at: a date that is written in another way is not.
    bool make_plain(RecordCells& record);

    /// Columns of dates that are left as they are though ISO dates are asked for.
    [[nodiscard]] const std::vector<std::size_t>& unsure_dates() const noexcept {
        return unsure_dates_;
    }

private:
    /// A column with values that may have to be replaced.
    struct Column {
        std::size_t index;
        std::optional<DateOrder> order; ///< of a column of dates; else it holds numbers
        std::string value;              ///< of the record
    };

    PlainNumbers numbers_;
    std::vector<std::string> missing_;
    std::vector<Column> columns_;
    std::vector<std::size_t> unsure_dates_;
};

} // namespace detect_layout
