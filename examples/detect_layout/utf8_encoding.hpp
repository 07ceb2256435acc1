#pragma once

#include <cstddef>
#include <string_view>

namespace detect_layout {

/// The most bytes that a code unit takes in UTF-8.
inline constexpr std::size_t most_bytes_per_unit = 3;

/// Writes `text` in UTF-8 to `to`, where there is room for `most_bytes_per_unit` times its size,
/// and gives the end. A surrogate without its partner becomes U+FFFD.
[[nodiscard]] char* encode_utf8(std::u16string_view text, char* to) noexcept;

} // namespace detect_layout
