#pragma once

#include "textio/options.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace detect_layout {

/// What the user asked for.
struct Settings {
    std::vector<std::string> inputs; ///< files, directories, `-` for standard input
    textio::parser::options options;
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    std::size_t rows = 250; ///< to sample
    std::size_t shown_rows = 10;
    std::string encoding; ///< empty: to be found
    bool json = false;
    bool explain = false;
    bool recursive = false;
    std::string help; ///< if not empty, all that the user asked for, ready to be printed
};

} // namespace detect_layout
