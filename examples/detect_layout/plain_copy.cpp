#include "plain_copy.hpp"

#include <array>
#include <cstdint>
#include <cstring>

namespace detect_layout {

namespace {

/// Bits of units that were seen, or all of them for a unit that was looked for.
template <typename Unit>
struct Bits {
    Unit any = 0;
    Unit quote = 0;
    Unit special = 0;
};

template <typename Unit>
struct Signs {
    Unit quote;
    Unit delimiter;
};

template <typename Unit>
Unit all_bits_if(bool is) noexcept {
    return static_cast<Unit>(is ? ~Unit{0} : Unit{0});
}

/// Copies so many units: a constant, and arrays that nothing else views, so that compilers use
/// vectors.
template <std::size_t count, typename Unit, typename Text>
void copy_block(const Text* from, Signs<Unit> signs, char* to, Bits<Unit>& bits) noexcept {
    std::array<Unit, count> units;
    std::array<Unit, count> quotes;
    std::array<Unit, count> specials;
    std::array<char, count> bytes;
    std::memcpy(units.data(), from, sizeof units);
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<char>(units[i]);
    }
    std::memcpy(to, bytes.data(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const Unit unit = units[i];
        quotes[i] = all_bits_if<Unit>(unit == signs.quote);
        specials[i] = static_cast<Unit>(all_bits_if<Unit>(unit == Unit{'\n'}) | all_bits_if<Unit>(unit == Unit{'\r'}) |
                                        all_bits_if<Unit>(unit == Unit{'"'}) | all_bits_if<Unit>(unit == signs.delimiter));
    }
    for (std::size_t i = 0; i < count; ++i) {
        bits.any = static_cast<Unit>(bits.any | units[i]);
        bits.quote = static_cast<Unit>(bits.quote | quotes[i]);
        bits.special = static_cast<Unit>(bits.special | specials[i]);
    }
}

template <typename Unit, typename Text>
Bits<Unit> copy(std::basic_string_view<Text> text, Signs<Unit> signs, char* to) noexcept {
    constexpr std::size_t block = 16;
    constexpr std::size_t half = 8;
    Bits<Unit> bits;
    const std::size_t size = text.size();
    if (size >= block) {
        for (std::size_t at = 0; at + block < size; at += block) {
            copy_block<block>(text.data() + at, signs, to + at, bits);
        }
        const std::size_t last = size - block; // some of it perhaps once more
        copy_block<block>(text.data() + last, signs, to + last, bits);
        return bits;
    }
    if (size >= half) {
        copy_block<half>(text.data(), signs, to, bits);
        const std::size_t last = size - half;
        copy_block<half>(text.data() + last, signs, to + last, bits);
        return bits;
    }
    for (std::size_t at = 0; at < size; ++at) {
        copy_block<1>(text.data() + at, signs, to + at, bits);
    }
    return bits;
}

} // namespace

Seen copy_narrowed(std::u16string_view text, char16_t quote, char16_t delimiter, char* to) noexcept {
    const auto bits = copy<std::uint16_t>(text, {quote, delimiter}, to);
    return {bits.any > 0x7F, bits.quote != 0, bits.special != 0};
}

bool copy_checked(std::string_view text, char delimiter, char* to) noexcept {
    const auto unit = static_cast<std::uint8_t>(delimiter);
    return copy<std::uint8_t>(text, {unit, unit}, to).special != 0;
}

} // namespace detect_layout
