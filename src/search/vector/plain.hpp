/// \file
/// The operations on vectors with whole numbers of 64 bits, for every processor.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace textio::vector {

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

} // namespace textio::vector
