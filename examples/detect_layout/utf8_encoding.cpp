#include "utf8_encoding.hpp"

#include "unicode.hpp"
#include "unit_block.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace detect_layout {

namespace {

constexpr std::size_t block = register_bytes / sizeof(char16_t);

/// Writes `block` units at `units` to `to` if all of them are ASCII.
bool write_ascii(const char16_t* units, char* to) noexcept {
    using Bytes = UnitBlock<std::uint8_t, block>;
    UnitBlock<std::uint16_t, block> some;
    std::memcpy(&some, units, sizeof some);
    const Bytes bytes = __builtin_convertvector(some, Bytes);
    std::memcpy(to, &bytes, sizeof bytes);
    return !has_any(some, beyond_ascii_bits);
}

} // namespace

char* encode_utf8(std::u16string_view text, char* to) noexcept {
    const auto* const units = text.data();
    auto* const bytes = reinterpret_cast<std::uint8_t*>(to);
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size();) {
        if (text.size() - i >= block && write_ascii(units + i, to + written)) {
            i += block;
            written += block;
            continue;
        }
        for (const std::size_t end = std::min(i + block, text.size()); i < end;) {
            UChar32 character = 0;
            U16_NEXT(units, i, text.size(), character);
            character = U_IS_SURROGATE(character) ? replacement_character : character;
            U8_APPEND_UNSAFE(bytes, written, character);
        }
    }
    return to + written;
}

} // namespace detect_layout
