/// \file
/// The one walk over UTF-8, from sequence to sequence.
#pragma once

#include <cstddef>
#include <cstdint>

namespace textio::utf8 {

inline constexpr char32_t replacement = 0xFFFD;
inline constexpr std::size_t mark_bytes = 3; ///< bytes of a byte order mark

/// What stands at the start of some bytes.
struct Sequence {
    enum class Kind : std::uint8_t {
        well_formed,
        malformed, ///< the longest start of a well-formed sequence, or a byte that starts none
        cut_off,   ///< the bytes end before it is known which of the two
    };

    Kind kind;
    std::size_t bytes;
    char32_t character; ///< `replacement` unless well-formed

    /// The code units that it becomes.
    [[nodiscard]] std::size_t units() const noexcept { return character > 0xFFFF ? 2 : 1; }
};

/// The sequence at `begin`, which is before `end`.
[[nodiscard]] Sequence sequence_at(const char* begin, const char* end) noexcept;

/// Whether a byte order mark stands at `begin`.
[[nodiscard]] bool mark_stands_at(const char* begin, const char* end) noexcept;

/// Where the run of ASCII at `begin` ends.
[[nodiscard]] const char* end_of_ascii(const char* begin, const char* end) noexcept;

/// Where a decoding came to.
struct Progress {
    const char* bytes;
    char16_t* units;
    std::size_t replaced;
};

/// Decodes the bytes from `begin` up to `end` to `units`, as long as there is room for a whole
/// sequence before `units_end`. Stops in front of one that is cut off, unless there is nothing
/// behind `end`.
[[nodiscard]] Progress decode_to(const char* begin, const char* end, bool is_last, char16_t* units,
                                 const char16_t* units_end) noexcept;

} // namespace textio::utf8
