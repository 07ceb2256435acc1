#include "plain_copy.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace detect_layout {

namespace {

constexpr unsigned ascii_end = 0x80;
constexpr std::size_t register_bytes = 16; ///< that all machines have for many units at once

struct Signs {
    std::uint8_t quote;
    std::uint8_t delimiter;
};

/// So many units side by side, which are compared and combined in one go.
template <typename Unit, std::size_t count>
struct Side {
    using By [[gnu::vector_size(count * sizeof(Unit))]] = Unit;
};

/// Whether a bit of `mask` is set in some of `units`.
template <typename Unit, typename Units>
bool has_any(const Units& units, Unit mask) noexcept {
    using Word = std::conditional_t<sizeof units % 8 == 0, std::uint64_t, std::uint32_t>;
    constexpr Word one_in_each = static_cast<Word>(~Word{0}) / static_cast<Unit>(~Unit{0});
    std::array<Word, sizeof units / sizeof(Word)> words{};
    std::memcpy(words.data(), &units, sizeof units);
    Word bits = 0;
    for (const Word word : words) {
        bits |= word;
    }
    return (bits & (one_in_each * mask)) != 0;
}

constexpr Seen seen_if(bool is_seen, Seen what) noexcept {
    return is_seen ? what : 0;
}

/// Copies a text of at least so many units.
template <std::size_t count, typename Unit>
Seen copy_blocks(std::basic_string_view<Unit> text, Signs signs, char* to) noexcept {
    using Number = std::conditional_t<sizeof(Unit) == 1, std::uint8_t, std::uint16_t>;
    using Units = typename Side<Number, count>::By;
    using Bytes = typename Side<std::uint8_t, count>::By;
    // No more than a register holds: what is larger is kept in memory from round to round.
    constexpr std::size_t part = std::min(sizeof(Units), register_bytes) / sizeof(Number);
    using Part = typename Side<Number, part>::By;
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
    constexpr auto beyond_ascii = static_cast<Number>(~(ascii_end - 1));
    constexpr auto all_bits = static_cast<std::uint8_t>(~0U);
    return seen_if(has_any(any, beyond_ascii), seen_beyond_ascii) |
           seen_if(has_any(quote, all_bits), seen_quote) |
           seen_if(has_any(special, all_bits), seen_special);
}

template <typename Unit>
Seen copy(std::basic_string_view<Unit> text, Signs signs, char* to) noexcept {
    if (text.size() >= 16) {
        return copy_blocks<16>(text, signs, to);
    }
    if (text.size() >= 8) {
        return copy_blocks<8>(text, signs, to);
    }
    if (text.size() >= 4) {
        return copy_blocks<4>(text, signs, to);
    }
    Seen seen = 0;
    for (const Unit unit : text) {
        const auto byte = static_cast<std::uint8_t>(unit);
        *to++ = static_cast<char>(byte);
        const bool is_beyond_ascii = static_cast<std::make_unsigned_t<Unit>>(unit) >= ascii_end;
        const bool is_special =
            byte == '\n' || byte == '\r' || byte == '"' || byte == signs.delimiter;
        seen |= seen_if(is_beyond_ascii, seen_beyond_ascii) |
                seen_if(byte == signs.quote, seen_quote) | seen_if(is_special, seen_special);
    }
    return seen;
}

} // namespace

Seen copy_narrowed(std::u16string_view text, char quote, char delimiter, char* to) noexcept {
    return copy(text, {static_cast<std::uint8_t>(quote), static_cast<std::uint8_t>(delimiter)}, to);
}

Seen copy_checked(std::string_view text, char delimiter, char* to) noexcept {
    return copy(text, {'"', static_cast<std::uint8_t>(delimiter)}, to);
}

const char16_t* find_beyond_ascii(std::u16string_view text) noexcept {
    constexpr std::size_t block = register_bytes / sizeof(char16_t);
    using Units = Side<std::uint16_t, block>::By;
    const char16_t* at = text.data();
    const char16_t* const end = at + text.size();
    for (; end - at >= std::ptrdiff_t{block}; at += block) {
        Units units;
        std::memcpy(&units, at, sizeof units);
        if (has_any(units, static_cast<std::uint16_t>(~(ascii_end - 1)))) {
            break;
        }
    }
    return std::find_if(at, end, [](char16_t unit) { return unit >= ascii_end; });
}

} // namespace detect_layout
