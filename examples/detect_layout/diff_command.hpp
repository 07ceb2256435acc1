#pragma once

namespace detect_layout {

/// `detect_layout diff`: tells whether two files are laid out alike.
int run_diff(int count, const char* const* arguments);

} // namespace detect_layout
