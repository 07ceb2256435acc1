/// \file
/// The few operations on vectors that the searches are made of: with SSE2, with NEON, and with
/// whole numbers of 64 bits for all other processors, or where `TEXTIO_PLAIN_VECTORS` asks for it.
/// A further set of instructions is one more pair of these two classes, chosen below.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if !defined(TEXTIO_PLAIN_VECTORS)
#if defined(__SSE2__) || defined(_M_X64)
#define TEXTIO_SSE2
#include <emmintrin.h>
#elif (defined(__aarch64__) && defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)) ||               \
    defined(_M_ARM64)
#define TEXTIO_NEON
#include <arm_neon.h>
#endif
#endif

namespace textio::vector {

#if defined(TEXTIO_SSE2)

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
    void store(void* memory) const noexcept {
        _mm_storeu_si128(static_cast<__m128i*>(memory), units_);
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

    /// What `all` gave and `store` left at `memory`.
    static Bytes load(const void* memory) noexcept {
        return Bytes(_mm_loadu_si128(static_cast<const __m128i*>(memory)));
    }
    static Bytes all(unsigned char byte) noexcept {
        return Bytes(_mm_set1_epi8(static_cast<char>(byte)));
    }
    void store(void* memory) const noexcept {
        _mm_storeu_si128(static_cast<__m128i*>(memory), bytes_);
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

#elif defined(TEXTIO_NEON)

class Units {
public:
    static constexpr std::size_t count = 8;

    static Units load(const void* memory) noexcept {
        return Units(vreinterpretq_u16_u8(vld1q_u8(static_cast<const std::uint8_t*>(memory))));
    }
    static Units all(char16_t unit) noexcept { return Units(vdupq_n_u16(unit)); }
    void store(void* memory) const noexcept {
        vst1q_u8(static_cast<std::uint8_t*>(memory), vreinterpretq_u8_u16(units_));
    }

    [[nodiscard]] Units minus(Units other) const noexcept {
        return Units(vsubq_u16(units_, other.units_));
    }

private:
    friend class Bytes;
    explicit Units(uint16x8_t units) noexcept : units_(units) {}
    uint16x8_t units_;
};

class Bytes {
public:
    static constexpr std::size_t count = 16;

    static Bytes load(const void* memory) noexcept {
        return Bytes(vld1q_u8(static_cast<const std::uint8_t*>(memory)));
    }
    static Bytes all(unsigned char byte) noexcept { return Bytes(vdupq_n_u8(byte)); }
    void store(void* memory) const noexcept {
        vst1q_u8(static_cast<std::uint8_t*>(memory), bytes_);
    }

    static Bytes narrowed(Units low, Units high) noexcept {
        return Bytes(vreinterpretq_u8_s8(vqmovn_high_s16(
            vqmovn_s16(vreinterpretq_s16_u16(low.units_)), vreinterpretq_s16_u16(high.units_))));
    }
    static Bytes equal(Units low, Units high, Units wanted) noexcept {
        return Bytes(vmovn_high_u16(vmovn_u16(vceqq_u16(low.units_, wanted.units_)),
                                    vceqq_u16(high.units_, wanted.units_)));
    }

    [[nodiscard]] Bytes either(Bytes other) const noexcept {
        return Bytes(vorrq_u8(bytes_, other.bytes_));
    }
    [[nodiscard]] Bytes both(Bytes other) const noexcept {
        return Bytes(vandq_u8(bytes_, other.bytes_));
    }
    [[nodiscard]] Bytes equal(Bytes other) const noexcept {
        return Bytes(vceqq_u8(bytes_, other.bytes_));
    }
    [[nodiscard]] Bytes in_range(unsigned char last, unsigned char length) const noexcept {
        return Bytes(vcltq_u8(vsubq_u8(vdupq_n_u8(last), bytes_), vdupq_n_u8(length)));
    }
    [[nodiscard]] bool are_all_set() const noexcept { return vminvq_u8(bytes_) == 0xFF; }

    /// Each answer keeps the bit of its place among eight, and neighbours are added up three times.
    static std::uint64_t bits(const std::array<Bytes, 4>& answers) noexcept {
        const uint8x16_t places = vreinterpretq_u8_u64(vdupq_n_u64(0x8040201008040201));
        const auto placed = [&](std::size_t i) { return vandq_u8(answers[i].bytes_, places); };
        const uint8x16_t halves =
            vpaddq_u8(vpaddq_u8(placed(0), placed(1)), vpaddq_u8(placed(2), placed(3)));
        return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(halves, halves)), 0);
    }

private:
    explicit Bytes(uint8x16_t bytes) noexcept : bytes_(bytes) {}
    uint8x16_t bytes_;
};

#else

/// Four units in each of two numbers, as they stand in memory.
class Units {
public:
    static constexpr std::size_t count = 8;

    static Units load(const void* memory) noexcept {
        Units units;
        std::memcpy(units.words_.data(), memory, sizeof units.words_);
        return units;
    }
    static Units all(char16_t unit) noexcept { return {each * unit, each * unit}; }
    void store(void* memory) const noexcept { std::memcpy(memory, words_.data(), sizeof words_); }

    [[nodiscard]] Units minus(Units other) const noexcept {
        return {minus(words_[0], other.words_[0]), minus(words_[1], other.words_[1])};
    }

private:
    friend class Bytes;
    static constexpr std::uint64_t each = 0x0001000100010001;
    static constexpr std::uint64_t highest = each << 15U; ///< the highest bit of each unit

    Units() = default;
    Units(std::uint64_t first, std::uint64_t second) noexcept : words_{first, second} {}

    /// Highest bits are taken apart, so that no unit borrows from the next.
    static std::uint64_t minus(std::uint64_t left, std::uint64_t right) noexcept {
        return ((left | highest) - (right & ~highest)) ^ ((left ^ ~right) & highest);
    }

    /// Sets the highest bit of each unit that is not 0, and leaves the others' clear.
    static std::uint64_t not_zero(std::uint64_t units) noexcept {
        return (((units & ~highest) + ~highest) | units) & highest;
    }

    std::array<std::uint64_t, 2> words_{};
};

/// Eight bytes in each of two numbers. To put two numbers of four units each together, one is moved
/// by a byte: so their bytes alternate, and `bits` takes them apart again.
class Bytes {
public:
    static constexpr std::size_t count = 16;

    static Bytes load(const void* memory) noexcept {
        Bytes bytes;
        std::memcpy(bytes.words_.data(), memory, sizeof bytes.words_);
        return bytes;
    }
    static Bytes all(unsigned char byte) noexcept { return {each * byte, each * byte}; }
    void store(void* memory) const noexcept { std::memcpy(memory, words_.data(), sizeof words_); }

    static Bytes narrowed(Units low, Units high) noexcept {
        return {narrowed(low.words_), narrowed(high.words_)};
    }
    static Bytes equal(Units low, Units high, Units wanted) noexcept {
        return {equal(low.words_, wanted.words_[0]), equal(high.words_, wanted.words_[0])};
    }

    [[nodiscard]] Bytes either(Bytes other) const noexcept {
        return {words_[0] | other.words_[0], words_[1] | other.words_[1]};
    }
    [[nodiscard]] Bytes both(Bytes other) const noexcept {
        return {words_[0] & other.words_[0], words_[1] & other.words_[1]};
    }
    [[nodiscard]] Bytes equal(Bytes other) const noexcept {
        return {zero(words_[0] ^ other.words_[0]), zero(words_[1] ^ other.words_[1])};
    }
    [[nodiscard]] Bytes in_range(unsigned char last, unsigned char length) const noexcept {
        const auto is_in = [=](std::uint64_t bytes) {
            const std::uint64_t end = each * last;
            const std::uint64_t distance =
                ((end | highest) - (bytes & ~highest)) ^ ((end ^ ~bytes) & highest);
            return ~(((distance & ~highest) + each * (0x80U - length)) | distance);
        };
        return {is_in(words_[0]), is_in(words_[1])};
    }
    [[nodiscard]] bool are_all_set() const noexcept {
        return (words_[0] & words_[1] & highest) == highest;
    }

    static std::uint64_t bits(const std::array<Bytes, 4>& answers) noexcept {
        std::uint64_t all_bits = 0;
        for (std::size_t i = 0; i < answers.size(); ++i) {
            all_bits |= (bits(answers[i].words_[0]) | bits(answers[i].words_[1]) << 8U) << (16 * i);
        }
        return all_bits;
    }

private:
    static constexpr std::uint64_t each = 0x0101010101010101;
    static constexpr std::uint64_t highest = each << 7U; ///< the highest bit of each byte

    Bytes() = default;
    Bytes(std::uint64_t first, std::uint64_t second) noexcept : words_{first, second} {}

    static std::uint64_t narrowed(const std::array<std::uint64_t, 2>& units) noexcept {
        constexpr std::uint64_t beyond_ascii = Units::each * 0xFF80;
        return ((units[0] | units[1]) & beyond_ascii) == 0
                   ? units[0] | units[1] << 8U
                   : cut_to_byte(units[0]) | cut_to_byte(units[1]) << 8U;
    }

    /// Four units with what `narrowed` makes of them.
    static std::uint64_t cut_to_byte(std::uint64_t units) noexcept {
        constexpr std::uint64_t beyond_ascii = Units::each * 0xFF80;
        const std::uint64_t lost =
            Units::not_zero(units & beyond_ascii) & Units::not_zero(~units & beyond_ascii);
        const std::uint64_t lost_bytes = (lost >> 15U) * 0xFF;
        return (units & ~lost_bytes & (Units::each * 0xFF)) | (lost_bytes & (Units::each * 0x7F));
    }

    static std::uint64_t equal(const std::array<std::uint64_t, 2>& units,
                               std::uint64_t wanted) noexcept {
        return ~(Units::not_zero(units[0] ^ wanted) >> 8U | Units::not_zero(units[1] ^ wanted));
    }

    /// Sets the highest bit of each byte that is 0, and clears that of the others.
    static std::uint64_t zero(std::uint64_t bytes) noexcept {
        return ~(((bytes & ~highest) + ~highest) | bytes);
    }

    /// A bit for each of eight units. The multiplication moves each highest bit to its place among
    /// the eight highest of all; no two of its sums meet in one bit.
    static std::uint64_t bits(std::uint64_t answers) noexcept {
        constexpr std::uint64_t places =
            std::endian::native == std::endian::little ? 0x0110022004400880 : 0x0880044002200110;
        return (((answers & highest) >> 7U) * places) >> 56U;
    }

    std::array<std::uint64_t, 2> words_{};
};

#endif

} // namespace textio::vector
