#pragma once

#include "settings.hpp"

#include <string>
#include <vector>

namespace detect_layout {

/// A file to look at, or a directory that could not be walked.
struct InputFile {
    std::string path;
    std::string trouble; ///< why the directory could not be walked; empty for a file
};

/// The user's inputs. If directories are to be walked, each is replaced by the files in and below
/// it, sorted. Names with a dot in front are left out, and links to directories are not followed.
[[nodiscard]] std::vector<InputFile> input_files(const Settings& settings);

} // namespace detect_layout
