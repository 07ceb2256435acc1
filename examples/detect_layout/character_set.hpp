#pragma once

#include <string>
#include <string_view>

namespace detect_layout {

/// The character set of a text.
struct CharacterSet {
    std::string name;
    std::string rival; ///< another that it may well be in, if the name is not sure; otherwise empty
};

/// The character set that a text beginning with the bytes `head` is most likely in.
/// `is_whole_text` tells that nothing follows. A byte order mark decides at once; then UTF-32 and
/// UTF-16 if they give text, then UTF-8 if the bytes hold together as such, then the set from
/// before Unicode in which they read best. Throws `UserError` if they are no text.
[[nodiscard]] CharacterSet detect_character_set(std::string_view head, bool is_whole_text);

/// The usual name of the character set that a user calls `name`. Throws `UserError` if there is
/// none of that name.
[[nodiscard]] std::string known_character_set(const std::string& name);

} // namespace detect_layout
