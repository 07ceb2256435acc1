#pragma once

#include "explanation.hpp"
#include "text_input.hpp"
#include "textio/strategy.hpp"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace detect_layout {

/// Members stand in the order in which they were added.
using Json = nlohmann::ordered_json;

/// Adds how a layout splits its lines: `kind`, `delimiters`, `field_widths`.
void add_layout(Json& answer, const textio::GenericStrategy& layout);

/// Adds how the text came out of its bytes, and what of the name of the file is no text.
void add_input(Json& answer, const std::string& file, const TextInput& input);

/// Adds the decision of the rules step by step, if there is an explanation.
void add_explanation(Json& answer, const std::optional<Explanation>& explanation);

/// `answer` on one line.
[[nodiscard]] std::string json_line(const Json& answer);

} // namespace detect_layout
