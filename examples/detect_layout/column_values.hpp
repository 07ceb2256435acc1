#pragma once

#include "advised.hpp"
#include "byte_buffer.hpp"
#include "iso_dates.hpp"
#include "plain_numbers.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace detect_layout {

/// Gives the values of a table in UTF-8 and plain, as its columns have them: numbers with a decimal
/// point, dates as ISO has them, nothing where a text counts as missing.
class ColumnValues {
public:
    /// A column with values that may have to be written in another way.
    struct Column {
        std::size_t index;
        std::optional<DateOrder> order; ///< of a column of dates; else it holds numbers
    };

    /// For the table of the best proposal. Dates are left as they are unless `iso_dates`, and in
    /// columns whose sample has a date of which day and month cannot be told apart for certain.
    ColumnValues(const Advised& advised, bool iso_dates);

    /// The value of a cell of the column `index`, good until the next one is asked for.
    [[nodiscard]] std::string_view value(std::size_t index, const textio::Field& cell);

    /// Dates so far that are written in another way than those of the sample, and left so.
    [[nodiscard]] std::size_t odd_dates() const noexcept { return odd_dates_; }

    /// Columns of dates that are left as they are though ISO dates are asked for.
    [[nodiscard]] const std::vector<std::size_t>& unsure_dates() const noexcept {
        return unsure_dates_;
    }

    /// The columns in which more than a missing text changes, from left to right.
    [[nodiscard]] const std::vector<Column>& changing() const noexcept { return changing_; }
    [[nodiscard]] const PlainNumbers& numbers() const noexcept { return numbers_; }
    [[nodiscard]] const std::vector<std::u16string>& missing() const noexcept { return missing_; }
    [[nodiscard]] const textio::parser::options& options() const noexcept { return options_; }

private:
    [[nodiscard]] std::string_view iso(std::string_view date, DateOrder order);

    const textio::parser::options options_;
    const PlainNumbers numbers_;
    const std::vector<std::u16string> missing_;
    std::vector<Column> changing_;
    std::vector<std::size_t> unsure_dates_;
    std::size_t odd_dates_ = 0;
    std::u16string unquoted_;
    ByteBuffer bytes_; ///< of the value
    std::string date_;
};

} // namespace detect_layout
