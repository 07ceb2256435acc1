/// \file
/// The decimal mark and the thousands separator of a table, from all its numbers together.
#pragma once

#include <cstddef>
#include <string_view>

namespace textio::advice {

/// Whether a unit can be a decimal mark, or separate thousands.
constexpr bool is_number_mark(char16_t unit) {
    return unit == u'.' || unit == u',';
}

/// Collects what the numbers of a table say of their marks.
class NumberMarks {
public:
    /// Takes in a cell that looks like a number, trimmed and without quotes.
    void add(std::u16string_view number) noexcept;

    /// Whether so many numbers have told the same that more would change nothing.
    [[nodiscard]] bool are_settled() const noexcept;

    /// The decimal mark; 0 where nothing tells.
    [[nodiscard]] char16_t decimal_mark() const noexcept;

    /// The thousands separator; 0 where there is none.
    [[nodiscard]] char16_t thousands_separator() const noexcept;

private:
    struct Mark {
        std::size_t decimal = 0;   ///< numbers in which it can only be the decimal mark
        std::size_t thousands = 0; ///< numbers in which it can only separate thousands
        std::size_t either = 0;    ///< numbers in which it could be one or the other

        /// Whether it separates thousands if it is not the decimal mark.
        [[nodiscard]] bool may_separate() const noexcept;
    };
    Mark point_;
    Mark comma_;
};

} // namespace textio::advice
