/// \file
/// What a number looks like before its marks are known.
#pragma once

#include <string_view>

namespace textio::advice {

/// Whether the whole of a trimmed text is a number with either decimal mark: digits, with or
/// without thousands separators, a sign, a currency sign or `<` in front, an exponent or `%`
/// behind.
[[nodiscard]] bool looks_like_number(std::u16string_view text) noexcept;

} // namespace textio::advice
