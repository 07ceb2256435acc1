/// \file
/// What a line above a table says of its columns.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// A word of a heading, by its place in the line.
struct HeadingWord {
    std::size_t begin = 0; ///< code units from the start of the line
    std::size_t end = 0;   ///< one past its last unit
};

/// The words of a heading that are `gap` blanks or more apart; fewer blanks are part of a word.
[[nodiscard]] std::vector<HeadingWord> heading_words(std::u16string_view heading, std::size_t gap);

/// Where the columns of a heading start: at its bars if it has three or more, or else at its words
/// that are two blanks apart.
[[nodiscard]] std::vector<std::size_t> heading_starts(std::u16string_view heading);

/// Where each run of dashes of a ruler starts.
[[nodiscard]] std::vector<std::size_t> ruler_starts(std::u16string_view ruler);

} // namespace textio::advice
