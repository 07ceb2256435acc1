#pragma once

#include "textio/advice.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace detect_layout {

/// What the user asked for.
struct Settings {
    std::vector<std::string> inputs; ///< files, directories, `-` for standard input

    /// What is known for certain about the text, for the answer by weighing readings.
    textio::advice::Settings known;

    /// The same for the answer by rules, where what is not known has its usual value.
    textio::parser::options options;
    zentor::io::text::typedetection::TypeAnalyzerOptions type_options;

    std::size_t rows = 250; ///< to sample
    std::size_t shown_rows = 10;
    std::string encoding; ///< empty: to be found
    bool rules = false;   ///< the answer is to be that by rules
    bool json = false;
    bool explain = false;
    bool recursive = false;
    std::string help; ///< if not empty, all that the user asked for, ready to be printed

    /// Whether the rules can be told all that the user knows of the layout.
    [[nodiscard]] bool rules_know_all() const {
        const auto fixed = textio::enums::StrategyMode::fixed_width;
        return !known.delimiter && !known.names_line && known.layout.value_or(fixed) == fixed;
    }
};

} // namespace detect_layout
