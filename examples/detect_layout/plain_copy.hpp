#pragma once

#include <cstddef>
#include <string_view>

namespace detect_layout {

/// What was seen in a text that was copied.
struct Seen {
    bool beyond_ascii = false;
    bool quote = false;   ///< the one asked for
    bool special = false; ///< a line ending, `"`, or the delimiter asked for
};

/// Copies `text` to `to`, where there is room for its size: a byte for each unit, which is of use
/// only if none is `beyond_ascii`.
[[nodiscard]] Seen copy_narrowed(std::u16string_view text, char16_t quote, char16_t delimiter,
                                 char* to) noexcept;

/// The same for bytes. Gives whether there is something `special`.
[[nodiscard]] bool copy_checked(std::string_view text, char delimiter, char* to) noexcept;

} // namespace detect_layout
