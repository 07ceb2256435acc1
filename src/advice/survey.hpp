/// \file
/// Which signs the lines of a text hold, before anything is assumed of them.
#pragma once

#include "textio/field.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace textio::advice {

/// On how many of the surveyed lines a sign stands. Letters and digits are no signs.
struct SignCount {
    char16_t sign = 0;
    std::size_t lines = 0;
};

/// What some lines of the second half of a sample hold: a preamble is left out that way.
struct Survey {
    std::vector<std::u16string_view>
        lines;                 ///< those looked at, none of them blank; the first part of long ones
    std::u16string_view first; ///< the first filled line of the text
    std::vector<SignCount> signs; ///< the signs of these lines, in no order
    std::size_t with_runs = 0;    ///< lines with two blanks in a row or a tab inside
    std::size_t with_blank = 0;   ///< lines with a blank inside

    [[nodiscard]] bool holds(char16_t sign) const noexcept;
    /// Whether half the lines or more have such runs of blanks.
    [[nodiscard]] bool mostly_has_runs() const noexcept { return with_runs * 2 >= lines.size(); }
    /// The share of the lines with `sign`.
    [[nodiscard]] double share(char16_t sign) const noexcept;
    /// The share of the lines that `count` of them are.
    [[nodiscard]] double share_of(std::size_t count) const noexcept;
    /// The common delimiter that stands on the most lines, and that share.
    [[nodiscard]] double share_of_common_delimiter() const noexcept;
};

/// The delimiters that are tried wherever they occur.
inline constexpr std::u16string_view common_delimiters_of_files = u",;\t|│";

/// Surveys a sample that was read as one field a line.
[[nodiscard]] Survey survey_lines(const FieldArray& lines);

} // namespace textio::advice
