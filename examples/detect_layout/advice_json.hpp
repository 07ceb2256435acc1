#pragma once

#include "advised.hpp"
#include "explanation.hpp"

#include <optional>
#include <string>

namespace detect_layout {

/// The best proposal as a JSON object on one line, with all proposals, and with the candidates of
/// the rules if there is an explanation. Lines of the text count from 0.
[[nodiscard]] std::string to_json(const Advised& advised,
                                  const std::optional<Explanation>& explanation);

} // namespace detect_layout
