/// \file
/// The few operations on vectors that the searches are made of: with SSE2, and in plain C++ for all
/// other processors, or where `TEXTIO_PLAIN_VECTORS` asks for it. A further set of instructions is
/// one more pair of these two classes, chosen below.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(TEXTIO_PLAIN_VECTORS)
#include <emmintrin.h>
#endif

namespace textio::vector {

#if defined(__SSE2__) && !defined(TEXTIO_PLAIN_VECTORS)

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

    /// 0xFFFF where both have the same unit, else 0.
    [[nodiscard]] Units equal(Units other) const noexcept {
        return Units(_mm_cmpeq_epi16(units_, other.units_));
    }

private:
    friend class Bytes;
    explicit Units(__m128i units) noexcept : units_(units) {}
    __m128i units_;
};

/// Sixteen bytes. A byte of 0xFF stands for yes, one of 0 for no.
class Bytes {
public:
    static constexpr std::size_t count = 16;

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

    /// A bit for each byte, its highest; that of the first byte is the lowest.
    [[nodiscard]] std::uint64_t bits() const noexcept {
        return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(bytes_)));
    }

private:
    explicit Bytes(__m128i bytes) noexcept : bytes_(bytes) {}
    __m128i bytes_;
};

#else

class Units {
public:
    static constexpr std::size_t count = 8;

    static Units load(const void* memory) noexcept {
        Units units;
        std::memcpy(units.units_.data(), memory, sizeof units.units_);
        return units;
    }
    static Units all(char16_t unit) noexcept {
        Units units;
        units.units_.fill(unit);
        return units;
    }
    void store(void* memory) const noexcept { std::memcpy(memory, units_.data(), sizeof units_); }

    [[nodiscard]] Units minus(Units other) const noexcept {
        return with(other, [](int left, int right) { return left - right; });
    }
    [[nodiscard]] Units equal(Units other) const noexcept {
        return with(other, [](int left, int right) { return left == right ? 0xFFFF : 0; });
    }

private:
    friend class Bytes;

    template <class Operation>
    [[nodiscard]] Units with(Units other, Operation operation) const noexcept {
        Units result;
        for (std::size_t i = 0; i < count; ++i) {
            result.units_[i] = static_cast<std::uint16_t>(operation(units_[i], other.units_[i]));
        }
        return result;
    }

    std::array<std::uint16_t, count> units_{};
};

class Bytes {
public:
    static constexpr std::size_t count = 16;

    static Bytes load(const void* memory) noexcept {
        Bytes bytes;
        std::memcpy(bytes.bytes_.data(), memory, sizeof bytes.bytes_);
        return bytes;
    }
    static Bytes all(unsigned char byte) noexcept {
        Bytes bytes;
        bytes.bytes_.fill(byte);
        return bytes;
    }
    void store(void* memory) const noexcept { std::memcpy(memory, bytes_.data(), sizeof bytes_); }

    static Bytes narrowed(Units low, Units high) noexcept {
        Bytes bytes;
        for (std::size_t i = 0; i < Units::count; ++i) {
            bytes.bytes_[i] = narrowed(low.units_[i]);
            bytes.bytes_[Units::count + i] = narrowed(high.units_[i]);
        }
        return bytes;
    }

    [[nodiscard]] Bytes either(Bytes other) const noexcept {
        return with(other, [](int left, int right) { return left | right; });
    }
    [[nodiscard]] Bytes both(Bytes other) const noexcept {
        return with(other, [](int left, int right) { return left & right; });
    }
    [[nodiscard]] Bytes equal(Bytes other) const noexcept {
        return with(other, [](int left, int right) { return left == right ? 0xFF : 0; });
    }
    [[nodiscard]] Bytes in_range(unsigned char last, unsigned char length) const noexcept {
        return with(all(last), [length](int byte, int end) {
            return ((end - byte) & 0xFF) < length ? 0xFF : 0;
        });
    }
    [[nodiscard]] std::uint64_t bits() const noexcept {
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < count; ++i) {
            bits |= std::uint64_t{bytes_[i]} >> 7U << i;
        }
        return bits;
    }

private:
    static unsigned char narrowed(std::uint16_t unit) noexcept {
        const bool fits = unit < 0x80 || unit >= 0xFF80;
        return static_cast<unsigned char>(fits ? unit & 0xFF : unit < 0x8000 ? 0x7F : 0x80);
    }

    template <class Operation>
    [[nodiscard]] Bytes with(Bytes other, Operation operation) const noexcept {
        Bytes result;
        for (std::size_t i = 0; i < count; ++i) {
            result.bytes_[i] = static_cast<unsigned char>(operation(bytes_[i], other.bytes_[i]));
        }
        return result;
    }

    std::array<unsigned char, count> bytes_{};
};

#endif

} // namespace textio::vector
