#pragma once

#include <string_view>

namespace detect_layout {

/// Puts something into the place of each standard stream that is closed, so that no file that is
/// opened later lands there. Reads and writes of such a stream still fail.
void hold_standard_streams();

/// Writes `text` to standard output, all of it, now. Throws `std::runtime_error` if that fails.
void write_out(std::string_view text);

/// Writes `what` to standard error as one line that does nothing to a terminal. If that fails,
/// nobody can be told.
void complain(std::string_view what) noexcept;

} // namespace detect_layout
