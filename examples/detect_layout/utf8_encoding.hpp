#pragma once

#include <cstddef>
#include <string_view>

namespace detect_layout {

/// The most bytes that a code unit takes in UTF-8.
inline constexpr std::size_t most_bytes_per_unit = 3;

/// Writes `text` in UTF-8 to `to`, where there is room for `most_bytes_per_unit` times its size,
/// and gives the end. A surrogate without its partner becomes U+FFFD.
[[nodiscard]] char* encode_utf8(std::u16string_view text, char* to) noexcept;

/// Units that a text must not hold to be copied as it is.
struct Reserved {
    char16_t one = 0;
    char16_t another = 0;
    char16_t third = 0;
};

/// Writes `text` to `to`, where there is room for its size, as long as it is ASCII without line
/// endings and without what is `reserved`. Gives whether it is; if not, what is written is of no
/// use.
[[nodiscard]] bool copy_plain(std::u16string_view text, const Reserved& reserved,
                              char* to) noexcept;

} // namespace detect_layout
