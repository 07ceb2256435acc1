#pragma once

#include <string>
#include <vector>

namespace detect_layout {

/// `inputs` with each directory among them replaced by the files in it and below it, in order of
/// their names. What begins with a dot in a directory is passed over, and directories that may not
/// be read are, too.
[[nodiscard]] std::vector<std::string> walk_directories(const std::vector<std::string>& inputs);

} // namespace detect_layout
