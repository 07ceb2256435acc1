#pragma once

#include <string_view>

namespace textio {

/// The delimiters that are preferred before any data is seen, best first. A delimiter's place here
/// is its prior rank, and their number is the limit below which a rank counts as common.
inline constexpr std::u16string_view common_delimiters = u",\t; ";

} // namespace textio
