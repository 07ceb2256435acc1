#pragma once

#include <cstddef>
#include <string_view>

namespace detect_layout {

/// What was seen in a text that was copied, added up: in one register, as it is looked at behind
/// each cell.
using Seen = unsigned;
inline constexpr Seen seen_beyond_ascii = 1;
inline constexpr Seen seen_quote = 2;   ///< the one asked for
inline constexpr Seen seen_special = 4; ///< a line ending, `"`, or the delimiter asked for

/// Copies `text` to `to`, where there is room for its size: a byte for each unit, which is of no
/// use for one beyond ASCII. In place of such a unit something else may be seen.
[[nodiscard]] Seen copy_narrowed(std::u16string_view text, char quote, char delimiter,
                                 char* to) noexcept;

/// The same for bytes, with `"` as the quote.
[[nodiscard]] Seen copy_checked(std::string_view text, char delimiter, char* to) noexcept;

/// The first unit of `text` beyond ASCII, or its end.
[[nodiscard]] const char16_t* find_beyond_ascii(std::u16string_view text) noexcept;

} // namespace detect_layout
