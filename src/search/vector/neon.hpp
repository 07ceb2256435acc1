/// \file
/// The operations on vectors with NEON, for low bytes first.
#pragma once

#include <arm_neon.h>
#include <array>
#include <cstddef>
#include <cstdint>

namespace textio::vector {

class Units {
public:
    static constexpr std::size_t count = 8;

    static Units load(const void* memory) noexcept {
        return Units(vreinterpretq_u16_u8(vld1q_u8(static_cast<const std::uint8_t*>(memory))));
    }
    static Units all(char16_t unit) noexcept { return Units(vdupq_n_u16(unit)); }

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

} // namespace textio::vector
