#include "utf8_encoding.hpp"

#include "unicode.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace detect_layout {

char* encode_utf8(std::u16string_view text, char* to) noexcept {
    const auto* const units = text.data();
    auto* const bytes = reinterpret_cast<std::uint8_t*>(to);
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (units[i] < 0x80) {
            bytes[written++] = static_cast<std::uint8_t>(units[i++]);
            continue;
        }
        UChar32 character = 0;
        U16_NEXT(units, i, text.size(), character);
        character = U_IS_SURROGATE(character) ? replacement_character : character;
        U8_APPEND_UNSAFE(bytes, written, character);
    }
    return to + written;
}

} // namespace detect_layout
