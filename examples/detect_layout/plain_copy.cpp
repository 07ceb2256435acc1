#include "plain_copy.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace detect_layout {

namespace {

template <typename Unit>
struct Signs {
    Unit quote;
    Unit delimiter;
};

/// So many units side by side, which are compared and combined in one go.
template <typename Unit, std::size_t count>
struct Side {
    using By [[gnu::vector_size(count * sizeof(Unit))]] = Unit;
};

/// Whether a bit of `mask` is set in some of `units`.
template <std::size_t count, typename Unit, typename Units>
bool has_any(const Units& units, Unit mask) noexcept {
    std::array<Unit, count> all;
    std::memcpy(all.data(), &units, sizeof units);
    Unit bits = 0;
    for (const Unit unit : all) {
        bits = static_cast<Unit>(bits | unit);
    }
    return (bits & mask) != 0;
}

/// Copies a text of at least so many units.
template <std::size_t count, typename Unit, typename Text>
Seen copy_blocks(std::basic_string_view<Text> text, Signs<Unit> signs, char* to) noexcept {
    using Units = typename Side<Unit, count>::By;
    using Bytes = typename Side<std::uint8_t, count>::By;
    Units any{};
    Units quote{};
    Units special{};
    const std::size_t last = text.size() - count; // of this block, some perhaps once more
    for (std::size_t at = 0;; at += count) {
        const std::size_t place = std::min(at, last);
        Units units;
        std::memcpy(&units, text.data() + place, sizeof units);
        const Bytes bytes = __builtin_convertvector(units, Bytes);
        std::memcpy(to + place, &bytes, sizeof bytes);
        any |= units;
        quote |= Units(units == signs.quote);
        special |= Units(units == Unit{'\n'}) | Units(units == Unit{'\r'}) |
                   Units(units == Unit{'"'}) | Units(units == signs.delimiter);
        if (at >= last) {
            break;
        }
    }
    constexpr auto all_bits = static_cast<Unit>(~Unit{0});
    return {has_any<count>(any, static_cast<Unit>(all_bits << 7U)), has_any<count>(quote, all_bits),
            has_any<count>(special, all_bits)};
}

template <typename Unit, typename Text>
Seen copy(std::basic_string_view<Text> text, Signs<Unit> signs, char* to) noexcept {
    constexpr std::size_t block = 16 / sizeof(Unit); // what all machines have vectors for
    if (text.size() >= block) {
        return copy_blocks<block>(text, signs, to);
    }
    Seen seen;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto unit = static_cast<Unit>(text[at]);
        to[at] = static_cast<char>(unit);
        seen.beyond_ascii = seen.beyond_ascii || unit > 0x7F;
        seen.quote = seen.quote || unit == signs.quote;
        seen.special = seen.special || unit == Unit{'\n'} || unit == Unit{'\r'} ||
                       unit == Unit{'"'} || unit == signs.delimiter;
    }
    return seen;
}

} // namespace

Seen copy_narrowed(std::u16string_view text, char16_t quote, char16_t delimiter,
                   char* to) noexcept {
    return copy<std::uint16_t>(text, {quote, delimiter}, to);
}

bool copy_checked(std::string_view text, char delimiter, char* to) noexcept {
    const auto unit = static_cast<std::uint8_t>(delimiter);
    return copy<std::uint8_t>(text, {unit, unit}, to).special;
}

} // namespace detect_layout
