/// \file
/// The ways to write dates that all tools can be told.
#pragma once

#include "table.hpp"

#include <cstdint>
#include <string_view>

namespace import_statements {

/// A set of ways to write dates, one bit for each.
using DateFormats = std::uint32_t;

/// The ways in which `value` is written; none if it is no date.
[[nodiscard]] DateFormats date_formats_of(std::u16string_view value);

/// The one way in `formats`; null if there is none, or if there are several, which cannot be told
/// apart.
[[nodiscard]] const DateFormat* only_format(DateFormats formats);

/// Whether a value of that format has a time of day.
[[nodiscard]] bool has_time(const DateFormat& format);

} // namespace import_statements
