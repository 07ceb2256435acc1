#pragma once

#include "textio/strategy.hpp"

#include <string>
#include <string_view>

namespace detect_layout {

/// A delimiter in words: `comma`, `tab`, `'x'`, `U+0001`.
[[nodiscard]] std::string delimiter_name(std::u16string_view delimiter);

/// A layout in a few words, as in `delimited by comma`.
[[nodiscard]] std::string layout_phrase(const textio::GenericStrategy& layout);

/// `1 row`, `2 rows`.
[[nodiscard]] std::string counted(std::size_t count, std::string_view noun);

} // namespace detect_layout
