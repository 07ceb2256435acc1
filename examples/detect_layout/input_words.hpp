#pragma once

#include "text_input.hpp"

#include <string>
#include <string_view>

namespace detect_layout {

/// A line of an answer: what it is about, and what there is to say.
[[nodiscard]] std::string answer_line(std::string_view what, std::string_view value);

/// How the text came out of its bytes, in lines of an answer.
[[nodiscard]] std::string input_lines(const TextInput& input);

/// The same for a list of files, on a single line without its end.
[[nodiscard]] std::string input_summary(const TextInput& input);

} // namespace detect_layout
