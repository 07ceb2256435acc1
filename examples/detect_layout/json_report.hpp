#pragma once

#include "detection.hpp"
#include "explanation.hpp"

#include <optional>
#include <string>

namespace detect_layout {

/// A detection as a JSON object on one line, with the candidates if there is an explanation.
[[nodiscard]] std::string to_json(const Detection& detection,
                                  const std::optional<Explanation>& explanation);

} // namespace detect_layout
