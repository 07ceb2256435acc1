/// \file
/// What a cell looks like, judged from its text alone and in one look.
#pragma once

#include "advice/date_shapes.hpp"

#include <cstdint>
#include <string_view>

namespace textio::advice {

/// What a cell looks like. A cut in the wrong place shows in the last five.
enum class CellKind : std::uint8_t {
    missing,   ///< nothing, or a text that stands for nothing
    number,    ///< a number with either decimal mark, with or without thousands separators
    date,      ///< a date, a time, or a duration
    quoted,    ///< a text in quotes from end to end
    word,      ///< one word or code
    words,     ///< several words
    separated, ///< a text with a sign inside that mostly separates fields
    gap,       ///< a text with a run of blanks inside
    broken     ///< half a pair of quotes, or nothing but separators
};

inline constexpr std::size_t cell_kinds = 9;

/// Whether `text` is empty, or stands for no value in many files: `NA`, `null`, `-`, and the like.
[[nodiscard]] bool stands_for_nothing(std::u16string_view text) noexcept;

/// Whether a trimmed text is an address, of a page or of a person, and nothing else.
[[nodiscard]] bool is_single_value(std::u16string_view text) noexcept;

/// Whether a trimmed text holds three or more words of letters, some in lower case, and one blank
/// between each two of its parts.
[[nodiscard]] bool reads_like_a_sentence(std::u16string_view text) noexcept;

/// Judges cells. A judge belongs to one thread.
class CellJudge {
public:
    /// `dates` must outlive the judge. `quote` is 0 for none.
    CellJudge(DateShapes& dates, char16_t quote) : dates_(&dates), quote_(quote) {}

    /// What `cell`, blanks and quotes included, looks like.
    [[nodiscard]] CellKind judge(std::u16string_view cell);

private:
    DateShapes* dates_;
    char16_t quote_;
};

} // namespace textio::advice
