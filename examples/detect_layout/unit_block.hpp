#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace detect_layout {

inline constexpr std::size_t register_bytes = 16; ///< that all machines have for many units at once

/// The bits of a code unit of which ASCII has none.
inline constexpr std::uint16_t beyond_ascii_bits = 0xFF80;

template <typename Unit, std::size_t count>
struct UnitBlockOf {
    using type [[gnu::vector_size(count * sizeof(Unit))]] = Unit;
};

/// So many units side by side, which are compared and combined in one go.
template <typename Unit, std::size_t count>
using UnitBlock = typename UnitBlockOf<Unit, count>::type;

/// Whether a bit of `mask` is set in some of `units`.
template <typename Unit, typename Units>
[[nodiscard]] bool has_any(const Units& units, Unit mask) noexcept {
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

} // namespace detect_layout
