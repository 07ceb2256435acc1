#pragma once

#include <string>
#include <string_view>

namespace detect_layout {

/// The name of the character set that a text beginning with the bytes `head` is most likely in.
/// `is_whole_text` tells that nothing follows. A byte order mark decides at once; then UTF-16 whose
/// blanks and digits give it away, then UTF-8 if the bytes hold together as such, then what ICU
/// recognises, and Windows-1252 where ICU is not sure.
[[nodiscard]] std::string detect_character_set(std::string_view head, bool is_whole_text);

/// The usual name of the character set that a user calls `name`. Throws `UserError` if there is
/// none of that name.
[[nodiscard]] std::string known_character_set(const std::string& name);

} // namespace detect_layout
