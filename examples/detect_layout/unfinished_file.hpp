#pragma once

#include <string>

namespace detect_layout {

/// Has the file at `path` removed if a signal ends the program, until `forget_unfinished_file` is
/// called. There is one such file at most.
void remember_unfinished_file(const std::string& path);

void forget_unfinished_file() noexcept;

} // namespace detect_layout
