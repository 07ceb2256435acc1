#pragma once

#include <string>
#include <string_view>

namespace detect_layout {

inline constexpr char16_t replacement_character = 0xFFFD;
inline constexpr char16_t byte_order_mark = 0xFEFF;

/// `text` in UTF-8; a surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string to_utf8(std::u16string_view text);

[[nodiscard]] bool is_utf8(std::string_view text);

/// UTF-8 `text` in UTF-16; what is not UTF-8 becomes U+FFFD.
[[nodiscard]] std::u16string to_utf16(std::string_view text);

} // namespace detect_layout
