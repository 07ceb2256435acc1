#include "c/utf8_out.hpp"

#include <cstddef>

namespace textio::c {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool is_first_half(char16_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool is_second_half(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// The character at `at`, which is moved behind it.
char32_t next_character(std::u16string_view text, std::size_t& at) noexcept {
    const char16_t unit = text[at++];
    if (is_first_half(unit) && at < text.size() && is_second_half(text[at])) {
        return 0x10000 + ((unit - 0xD800U) << 10U) + (text[at++] - 0xDC00U);
    }
    return is_first_half(unit) || is_second_half(unit) ? replacement : unit;
}

/// The byte that holds the six bits of `character` from `shift` on, as one that continues.
char continuing(char32_t character, unsigned shift) noexcept {
    return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
}

void append(char32_t character, std::string& bytes) {
    if (character < 0x80) {
        bytes += static_cast<char>(character);
    } else if (character < 0x800) {
        bytes += static_cast<char>(0xC0U | (character >> 6U));
        bytes += continuing(character, 0);
    } else if (character < 0x10000) {
        bytes += static_cast<char>(0xE0U | (character >> 12U));
        bytes += continuing(character, 6);
        bytes += continuing(character, 0);
    } else {
        bytes += static_cast<char>(0xF0U | (character >> 18U));
        bytes += continuing(character, 12);
        bytes += continuing(character, 6);
        bytes += continuing(character, 0);
    }
}

} // namespace

void to_utf8(std::u16string_view text, std::string& bytes) {
    bytes.clear();
    for (std::size_t at = 0; at < text.size();) {
        append(next_character(text, at), bytes);
    }
}

std::string utf8_of(std::u16string_view text) {
    std::string bytes;
    to_utf8(text, bytes);
    return bytes;
}

} // namespace textio::c
