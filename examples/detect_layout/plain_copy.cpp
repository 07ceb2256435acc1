#include "plain_copy.hpp"

#include "unit_block.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace detect_layout {

namespace {

struct Signs {
    std::uint8_t quote;
    std::uint8_t delimiter;
};

constexpr Seen seen_if(bool is_seen, Seen what) noexcept {
    return is_seen ? what : 0;
}

/// Copies a text of at least so many units.
template <std::size_t count>
Seen copy_blocks(std::u16string_view text, Signs signs, char* to) noexcept {
    using Units = UnitBlock<std::uint16_t, count>;
    using Bytes = UnitBlock<std::uint8_t, count>;
    // No more than a register holds: what is larger is kept in memory from round to round.
    constexpr std::size_t part = std::min(sizeof(Units), register_bytes) / sizeof(char16_t);
    using Part = UnitBlock<std::uint16_t, part>;
    Part any{};
    Bytes quote{};
    Bytes special{};
    const std::size_t last = text.size() - count; // of this block, some perhaps once more
    for (std::size_t at = 0;; at += count) {
        const std::size_t place = std::min(at, last);
        Units units;
        std::memcpy(&units, text.data() + place, sizeof units);
        const Bytes bytes = __builtin_convertvector(units, Bytes);
        std::memcpy(to + place, &bytes, sizeof bytes);
        for (std::size_t i = 0; i < count; i += part) {
            Part some;
            std::memcpy(&some, text.data() + place + i, sizeof some);
            any |= some;
        }
        quote |= Bytes(bytes == signs.quote);
        special |= Bytes(bytes == std::uint8_t{'\n'}) | Bytes(bytes == std::uint8_t{'\r'}) |
                   Bytes(bytes == std::uint8_t{'"'}) | Bytes(bytes == signs.delimiter);
        if (at >= last) {
            break;
        }
    }
    constexpr auto all_bits = static_cast<std::uint8_t>(~0U);
    return seen_if(has_any(any, beyond_ascii_bits), seen_beyond_ascii) |
           seen_if(has_any(quote, all_bits), seen_quote) |
           seen_if(has_any(special, all_bits), seen_special);
}

Seen copy_units(std::u16string_view text, Signs signs, char* to) noexcept {
    Seen seen = 0;
    for (const char16_t unit : text) {
        const auto byte = static_cast<std::uint8_t>(unit);
        *to++ = static_cast<char>(byte);
        const bool is_special =
            byte == '\n' || byte == '\r' || byte == '"' || byte == signs.delimiter;
        seen |= seen_if((unit & beyond_ascii_bits) != 0, seen_beyond_ascii) |
                seen_if(byte == signs.quote, seen_quote) | seen_if(is_special, seen_special);
    }
    return seen;
}

} // namespace

Seen copy_narrowed(std::u16string_view text, char quote, char delimiter, char* to) noexcept {
    const Signs signs{static_cast<std::uint8_t>(quote), static_cast<std::uint8_t>(delimiter)};
    if (text.size() >= 16) {
        return copy_blocks<16>(text, signs, to);
    }
    if (text.size() >= 8) {
        return copy_blocks<8>(text, signs, to);
    }
    return text.size() >= 4 ? copy_blocks<4>(text, signs, to) : copy_units(text, signs, to);
}

} // namespace detect_layout
