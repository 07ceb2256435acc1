#include "utf8/sequences.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__SSE2__) && !defined(TEXTIO_PLAIN_VECTORS)
#include <emmintrin.h>
#endif

namespace textio::utf8 {

namespace {

unsigned byte_at(const char* at) {
    return static_cast<unsigned char>(*at);
}

/// What a first byte says about the others.
struct Lead {
    std::size_t bytes; ///< of the whole sequence; 0 if none starts so
    unsigned bits;     ///< of the character
    unsigned least;    ///< of the second byte, which rules out
    unsigned most;     ///< surrogates, longer forms than needed, and what is beyond U+10FFFF
};

Lead lead_of(unsigned byte) {
    if (byte < 0x80) {
        return {1, byte, 0, 0};
    }
    if (byte < 0xC2 || byte > 0xF4) {
        return {0, 0, 0, 0};
    }
    if (byte < 0xE0) {
        return {2, byte & 0x1FU, 0x80, 0xBF};
    }
    if (byte < 0xF0) {
        return {3, byte & 0x0FU, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    }
    return {4, byte & 0x07U, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
}

char16_t* put(char32_t character, char16_t* units) {
    if (character <= 0xFFFF) {
        *units++ = static_cast<char16_t>(character);
    } else {
        const char32_t rest = character - 0x10000;
        *units++ = static_cast<char16_t>(0xD800 + (rest >> 10U));
        *units++ = static_cast<char16_t>(0xDC00 + (rest & 0x3FFU));
    }
    return units;
}

#if defined(__SSE2__) && !defined(TEXTIO_PLAIN_VECTORS)

constexpr std::ptrdiff_t block = 16; ///< bytes looked at together

__m128i load(const void* bytes) {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

/// How many bytes of a block are ASCII before the first that is not.
std::ptrdiff_t ascii_in_block(const char* bytes) {
    const __m128i loaded = load(bytes);
    const auto others = static_cast<unsigned>(_mm_movemask_epi8(loaded)) | (1U << 16U);
    return std::countr_zero(others);
}

void widen_block(const char* bytes, char16_t* units) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i loaded = load(bytes);
    auto* const to = static_cast<__m128i*>(static_cast<void*>(units));
    _mm_storeu_si128(to, _mm_unpacklo_epi8(loaded, zero));
    _mm_storeu_si128(to + 1, _mm_unpackhi_epi8(loaded, zero));
}

#else

constexpr std::ptrdiff_t block = 8; ///< bytes looked at together

std::ptrdiff_t ascii_in_block(const char* bytes) {
    std::uint64_t loaded = 0;
    std::memcpy(&loaded, bytes, sizeof loaded);
    if ((loaded & 0x8080808080808080U) == 0) {
        return block;
    }
    return std::find_if(bytes, bytes + block, [](char byte) { return (byte & 0x80) != 0; }) - bytes;
}

void widen_block(const char* bytes, char16_t* units) {
    std::transform(bytes, bytes + block, units,
                   [](char byte) { return static_cast<char16_t>(byte & 0xFF); });
}

#endif

/// Widens the run of ASCII at `begin`; at most as many bytes as there is room for.
void widen_ascii(const char*& begin, const char* end, char16_t*& units, const char16_t* units_end) {
    while (end - begin >= block && units_end - units >= block) {
        widen_block(begin, units); // what a last block writes too much is written over later
        const std::ptrdiff_t ascii = ascii_in_block(begin);
        if (ascii != block) {
            begin += ascii;
            units += ascii;
            return;
        }
        begin += block; // a constant, so the next block need not wait for `ascii`
        units += block;
    }
    while (begin != end && units != units_end && byte_at(begin) < 0x80) {
        *units++ = static_cast<char16_t>(*begin++);
    }
}

} // namespace

Sequence sequence_at(const char* begin, const char* end) noexcept {
    const Lead lead = lead_of(byte_at(begin));
    if (lead.bytes == 0) {
        return {Sequence::Kind::malformed, 1, replacement};
    }
    char32_t character = lead.bits;
    for (std::size_t at = 1; at < lead.bytes; ++at) {
        if (begin + at == end) {
            return {Sequence::Kind::cut_off, at, replacement};
        }
        const unsigned byte = byte_at(begin + at);
        if (byte < (at == 1 ? lead.least : 0x80) || byte > (at == 1 ? lead.most : 0xBF)) {
            return {Sequence::Kind::malformed, at, replacement};
        }
        character = (character << 6U) | (byte & 0x3FU);
    }
    return {Sequence::Kind::well_formed, lead.bytes, character};
}

bool mark_stands_at(const char* begin, const char* end) noexcept {
    return static_cast<std::size_t>(end - begin) >= mark_bytes &&
           std::memcmp(begin, "\xEF\xBB\xBF", mark_bytes) == 0;
}

const char* end_of_ascii(const char* begin, const char* end) noexcept {
    while (end - begin >= block && ascii_in_block(begin) == block) {
        begin += block;
    }
    return std::find_if(begin, end, [](char byte) { return (byte & 0x80) != 0; });
}

Progress decode_to(const char* begin, const char* end, bool is_last, char16_t* units,
                   const char16_t* units_end) noexcept {
    std::size_t replaced = 0;
    while (begin != end) {
        if (byte_at(begin) < 0x80) {
            widen_ascii(begin, end, units, units_end);
            if (units == units_end || begin == end) {
                break;
            }
        }
        const Sequence sequence = sequence_at(begin, end);
        const bool is_unknown = sequence.kind == Sequence::Kind::cut_off && !is_last;
        if (is_unknown || static_cast<std::size_t>(units_end - units) < sequence.units()) {
            break;
        }
        units = put(sequence.character, units);
        replaced += sequence.kind == Sequence::Kind::well_formed ? 0U : 1U;
        begin += sequence.bytes;
    }
    return {begin, units, replaced};
}

} // namespace textio::utf8
