/// \file
/// The search for characters that a text has not shown before.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace textio::detection {

/// Finds ASCII units that are neither letters nor digits nor known yet, and `end_of_text`. A text
/// has few different ones, so nearly all of it is passed over, many units at a time.
class PunctuationSearch {
public:
    explicit PunctuationSearch(std::u16string_view known);

    /// The first such unit from `begin` on, or `end`. Nothing outside the range is read.
    [[nodiscard]] const char16_t* next(const char16_t* begin, const char16_t* end) const noexcept;

    /// Makes `unit` known.
    void add_known(char16_t unit) noexcept;

private:
    static constexpr std::size_t ascii_units = 128;

    /// Units that are compared at once.
    static constexpr std::ptrdiff_t block_units = 16;

    /// With more known units than this, the text is looked at unit by unit.
    static constexpr std::size_t most_compared_units = 8;

    /// For each known unit a block of its byte, as the comparison wants it.
    using Known = std::array<std::array<unsigned char, block_units>, most_compared_units>;

    [[nodiscard]] bool is_wanted(char16_t unit) const noexcept;

    /// The start of a block that may hold such a unit, or `end`.
    [[nodiscard]] const char16_t* skip_familiar_blocks(const char16_t* begin,
                                                       const char16_t* end) const noexcept;

    std::array<bool, ascii_units> is_familiar_{}; ///< known, or a letter or digit
    alignas(16) Known compared_{};
    std::size_t known_count_ = 0;
};

} // namespace textio::detection
