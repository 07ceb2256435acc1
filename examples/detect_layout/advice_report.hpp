#pragma once

#include "advised.hpp"

#include "textio/strategy.hpp"

#include <string>

namespace detect_layout {

/// Whether a field of the sample is quoted, so that the layout's quote is more than a habit.
[[nodiscard]] bool has_quotes(const textio::GenericStrategy& layout);

/// The best proposal in words, some lines, each with its line end. Lines of the text count from 1.
[[nodiscard]] std::string describe(const Advised& advised);

/// The same on a single line, for a list of files.
[[nodiscard]] std::string summarise(const Advised& advised);

/// All proposals with what speaks for them and against them, each in a few lines.
[[nodiscard]] std::string list_proposals(const Advised& advised);

/// What stands above the explanation of the rules, which do not give this answer.
[[nodiscard]] std::string rules_heading(const Advised& advised);

} // namespace detect_layout
