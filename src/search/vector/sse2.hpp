/// \file
/// The operations on vectors with SSE2. What is said of one here holds for the other sets, too.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <emmintrin.h>

namespace textio::vector {

/// Eight code units.
class Units {
public:
    static constexpr std::size_t count = 8;

    static Units load(const void* memory) noexcept {
        return Units(_mm_loadu_si128(static_cast<const __m128i*>(memory)));
    }
    static Units all(char16_t unit) noexcept {
        return Units(_mm_set1_epi16(static_cast<short>(unit)));
    }

    /// Each unit less that of `other`, modulo 2 to the 16th.
    [[nodiscard]] Units minus(Units other) const noexcept {
        return Units(_mm_sub_epi16(units_, other.units_));
    }

private:
    friend class Bytes;
    explicit Units(__m128i units) noexcept : units_(units) {}
    __m128i units_;
};

/// Sixteen bytes, in an order of their own. Where they are answers, the highest bit of each says
/// yes.
class Bytes {
public:
    static constexpr std::size_t count = 16;

    /// One byte, repeated at `memory`.
    static Bytes load(const void* memory) noexcept {
        return Bytes(_mm_loadu_si128(static_cast<const __m128i*>(memory)));
    }
    static Bytes all(unsigned char byte) noexcept {
        return Bytes(_mm_set1_epi8(static_cast<char>(byte)));
    }

    /// The units of both as bytes. As signed numbers they are cut to what fits: 0 to 0x7F and
    /// 0xFF80 to 0xFFFF keep their last byte, others become 0x7F or 0x80.
    static Bytes narrowed(Units low, Units high) noexcept {
        return Bytes(_mm_packs_epi16(low.units_, high.units_));
    }

    /// Yes for each unit of both that is the same in `wanted`.
    static Bytes equal(Units low, Units high, Units wanted) noexcept {
        return Bytes(_mm_packs_epi16(_mm_cmpeq_epi16(low.units_, wanted.units_),
                                     _mm_cmpeq_epi16(high.units_, wanted.units_)));
    }

    [[nodiscard]] Bytes either(Bytes other) const noexcept {
        return Bytes(_mm_or_si128(bytes_, other.bytes_));
    }
    [[nodiscard]] Bytes both(Bytes other) const noexcept {
        return Bytes(_mm_and_si128(bytes_, other.bytes_));
    }
    [[nodiscard]] Bytes equal(Bytes other) const noexcept {
        return Bytes(_mm_cmpeq_epi8(bytes_, other.bytes_));
    }

    /// Yes for `last` and the `length - 1` bytes before it, at most 0x7F of them.
    [[nodiscard]] Bytes in_range(unsigned char last, unsigned char length) const noexcept {
        const __m128i moved = _mm_add_epi8(bytes_, _mm_set1_epi8(static_cast<char>(0x7F - last)));
        return Bytes(_mm_cmpgt_epi8(moved, _mm_set1_epi8(static_cast<char>(0x7F - length))));
    }

    /// Whether all say yes.
    [[nodiscard]] bool are_all_set() const noexcept { return bits() == 0xFFFF; }

    /// A bit for each unit that four times sixteen answers are about, in the order of the units;
    /// that of the first is the lowest.
    static std::uint64_t bits(const std::array<Bytes, 4>& answers) noexcept {
        return answers[0].bits() | answers[1].bits() << 16U | answers[2].bits() << 32U |
               answers[3].bits() << 48U;
    }

private:
    explicit Bytes(__m128i bytes) noexcept : bytes_(bytes) {}
    [[nodiscard]] std::uint64_t bits() const noexcept {
        return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(bytes_)));
    }
    __m128i bytes_;
};

} // namespace textio::vector
