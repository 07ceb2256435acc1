/// \file
/// Texts that hold no table: logs, prose, source code, and lists of single values.
#pragma once

#include "advice/survey.hpp"

namespace textio::advice {

/// What the surveyed lines are, if they are no rows.
struct TextKind {
    bool is_log = false;         ///< most begin with a time of day and go on in words
    bool log_has_commas = false; ///< and that time has a comma before its fraction
    bool is_prose = false;       ///< most read like sentences
    bool is_code = false;        ///< statements and lines of brackets, or objects in brackets
};

[[nodiscard]] TextKind kind_of_text(const Survey& survey);

} // namespace textio::advice
