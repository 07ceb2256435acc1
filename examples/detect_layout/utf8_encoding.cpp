#include "utf8_encoding.hpp"

#include "unicode.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <cstdint>

namespace detect_layout {

namespace {

constexpr std::size_t block = 16; ///< units; a constant, so that compilers use vectors

/// Not 0 if a unit is not plain.
std::uint16_t copy_unit(char16_t unit, const Reserved& reserved, char* to) noexcept {
    *to = static_cast<char>(unit);
    const auto is = [unit](char16_t other) {
        return static_cast<std::uint16_t>(unit == other ? 1U : 0U);
    };
    return static_cast<std::uint16_t>((unit & 0xFF80U) | is(u'\n') | is(u'\r') | is(reserved.one) |
                                      is(reserved.another) | is(reserved.third));
}

std::uint16_t copy_block(const char16_t* from, const Reserved& reserved, char* to) noexcept {
    std::uint16_t found = 0;
    for (std::size_t i = 0; i < block; ++i) {
        found = static_cast<std::uint16_t>(found | copy_unit(from[i], reserved, to + i));
    }
    return found;
}

} // namespace

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

bool copy_plain(std::u16string_view text, const Reserved& reserved, char* to) noexcept {
    std::uint16_t found = 0;
    std::size_t at = 0;
    for (; text.size() - at >= block; at += block) {
        found = static_cast<std::uint16_t>(found | copy_block(text.data() + at, reserved, to + at));
    }
    if (at > 0 && at < text.size()) {
        at = text.size() - block; // some of it once more
        found = static_cast<std::uint16_t>(found | copy_block(text.data() + at, reserved, to + at));
    } else {
        for (; at < text.size(); ++at) {
            found = static_cast<std::uint16_t>(found | copy_unit(text[at], reserved, to + at));
        }
    }
    return found == 0;
}

} // namespace detect_layout
