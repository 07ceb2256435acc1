/// \file
/// The character positions at which every line of a text is blank.
#pragma once

#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace textio::detection {

/// Takes in a text line by line, and keeps which positions have stayed blank on all lines and how
/// many columns of text those positions leave. The cost is linear in the lines taken in: the number
/// of columns is kept up as positions lose their blank, never counted anew.
class BlankColumns {
public:
    /// Starts with `positions` positions that are blank. Lines that stand within `whole` are taken
    /// in faster.
    BlankColumns(std::size_t positions, const Field& whole);

    /// Takes in a line of `length` units whose text is `text`. A position that no earlier line
    /// reached is not blank from here on, whatever stands there.
    void add_line(const Field& text, std::size_t length);

    /// The number of columns, at least 1.
    [[nodiscard]] std::size_t columns() const noexcept { return runs_ == 0 ? 1 : runs_; }

    /// The widths of the columns from the left, in code units. A column takes the blanks on its
    /// left; blanks at the very end are a column of their own. Empty if no line has any position.
    [[nodiscard]] std::vector<std::size_t> widths() const;

private:
    [[nodiscard]] std::uint64_t others_among(const char16_t* units,
                                             std::size_t count) const noexcept;
    [[nodiscard]] bool is_blank(std::size_t position) const noexcept;
    void extend(std::size_t length);
    void lose_blank(std::size_t position);

    parser::UnitSearch others_;  ///< finds what is not blank
    std::uintptr_t first_block_; ///< address of the first units that may be read as a whole block
    std::uintptr_t last_block_;  ///< of the last, 0 if there are none
    std::vector<std::uint64_t> blank_; ///< one bit per position, set while it is blank on all lines
    std::size_t positions_;
    std::size_t runs_ = 0; ///< runs of positions that are not blank
};

} // namespace textio::detection
