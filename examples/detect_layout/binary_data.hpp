#pragma once

#include <string>
#include <string_view>

namespace detect_layout {

/// What the bytes `head`, the beginning of a file, are if they are no text, as in `PNG image data`;
/// empty if they can be text. Text in UTF-16 or UTF-32 is not known here.
[[nodiscard]] std::string binary_kind(std::string_view head);

} // namespace detect_layout
