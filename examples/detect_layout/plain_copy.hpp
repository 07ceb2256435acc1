#pragma once

#include <string_view>

namespace detect_layout {

/// What was seen in a text that was copied, added up: in one register, as it is looked at behind
/// each copy.
using Seen = unsigned;
inline constexpr Seen seen_beyond_ascii = 1;
inline constexpr Seen seen_quote = 2;   ///< the one asked for
inline constexpr Seen seen_special = 4; ///< a line ending, `"`, or the delimiter asked for

/// Copies `text` to `to`, where there is room for its size: a byte for each unit, which is of no
/// use for one beyond ASCII. In place of such a unit something else may be seen.
[[nodiscard]] Seen copy_narrowed(std::u16string_view text, char quote, char delimiter,
                                 char* to) noexcept;

} // namespace detect_layout
