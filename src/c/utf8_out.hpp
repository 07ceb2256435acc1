/// \file
/// From the library's text to UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace textio::c {

/// Makes `bytes` the UTF-8 of `text`. A half of a pair that stands alone becomes U+FFFD.
void to_utf8(std::u16string_view text, std::string& bytes);

/// The same, as a new string.
[[nodiscard]] std::string utf8_of(std::u16string_view text);

} // namespace textio::c
