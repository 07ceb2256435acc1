#pragma once

#include "settings.hpp"

namespace detect_layout {

/// What the command line asks for. Throws `UserError` for what it cannot make sense of.
[[nodiscard]] Settings read_command_line(int count, const char* const* arguments);

} // namespace detect_layout
