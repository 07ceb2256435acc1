#pragma once

#include "settings.hpp"

#include <optional>

namespace detect_layout {

/// What the command line asks for, or nothing if all it wanted was help, which is printed then.
/// Throws `UserError` for what it cannot make sense of.
[[nodiscard]] std::optional<Settings> read_command_line(int count, const char* const* arguments);

} // namespace detect_layout
