/// \file
/// The one search that all reading stands on: the next unit of a text that is in a given set.
///
/// A text is looked at in blocks of 64 units. Each block becomes a mask with one bit per unit, set
/// where the unit is in the set, and hits are then taken from the mask bit by bit. The units
/// between two hits are never looked at one by one.
#pragma once

#include "textio/field.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace textio::parser {

/// A value that no code unit equals.
inline constexpr char32_t no_unit = 0x10000;

/// A set of code units.
class UnitSet {
public:
    UnitSet() = default;
    explicit UnitSet(std::u16string_view units);

    [[nodiscard]] bool contains(char16_t unit) const noexcept {
        return unit < low_units ? ((low_[unit / 64U] >> (unit % 64U)) & 1U) != 0
                                : contains_high(unit);
    }

    /// All units of the set, ascending, each once.
    [[nodiscard]] const std::u16string& units() const noexcept { return units_; }

private:
    static constexpr char16_t low_units = 256;

    [[nodiscard]] bool contains_high(char16_t unit) const noexcept {
        constexpr std::size_t few_units = 8;
        const std::u16string_view high = std::u16string_view(units_).substr(low_count_);
        if (high.empty() || unit < high.front() || unit > high.back()) {
            return false;
        }
        return high.size() <= few_units ? high.find(unit) != std::u16string_view::npos
                                        : std::binary_search(high.begin(), high.end(), unit);
    }

    std::array<std::uint64_t, low_units / 64> low_{}; ///< one bit for each unit below 256
    std::size_t low_count_ = 0;                       ///< how many these are
    std::u16string units_;
};

/// Whether no unit stands in both sets.
[[nodiscard]] bool are_disjoint(const UnitSet& a, const UnitSet& b);

/// Finds the units of a set, or those outside it.
class UnitSearch {
public:
    /// What is searched for: units of the set, or units outside it.
    enum class Wanted : std::uint8_t { inside, outside };

    static constexpr std::size_t block_units = 64;

    UnitSearch() = default;
    explicit UnitSearch(std::u16string_view units, Wanted wanted = Wanted::inside);

    /// The first position of `text` from `from` on whose unit is wanted, or `text.size`. `from` is
    /// at most `text.size`. Nothing outside the text is read.
    [[nodiscard]] std::size_t next(const Field& text, std::size_t from) const noexcept {
        return find(text, from, unwanted_);
    }

    /// The position behind the run of wanted units that stands at `from` of `text`.
    [[nodiscard]] std::size_t skip(const Field& text, std::size_t from) const noexcept {
        return find(text, from, ~unwanted_);
    }

    /// The set that was given.
    [[nodiscard]] const UnitSet& set() const noexcept { return set_; }

    /// One bit for each unit from `begin` up to `end`, at most 64 of them, set where the unit is
    /// wanted; the first unit has the lowest bit. Nothing outside the range is read.
    [[nodiscard]] std::uint64_t mask(const char16_t* begin, const char16_t* end) const noexcept {
        return static_cast<std::size_t>(end - begin) == block_units
                   ? mask_of_block_(*this, begin) ^ unwanted_
                   : mask_of_last_block(begin, end, unwanted_);
    }

private:
    /// More units than this, and looking each unit of the text up is cheaper than comparing it with
    /// all of the set.
    static constexpr std::size_t most_compared_units = 8;

    using BlockMask = std::uint64_t (*)(const UnitSearch&, const char16_t*) noexcept;

    static std::uint64_t looked_up_mask(const UnitSearch& search, const char16_t* units) noexcept;
    template <std::size_t count>
    static std::uint64_t byte_mask(const UnitSearch& search, const char16_t* units) noexcept;
    static std::uint64_t unit_mask(const UnitSearch& search, const char16_t* units) noexcept;

    [[nodiscard]] std::size_t find(const Field& text, std::size_t from,
                                   std::uint64_t unwanted) const noexcept;
    [[nodiscard]] std::uint64_t mask_of_last_block(const char16_t* begin, const char16_t* end,
                                                   std::uint64_t unwanted) const noexcept;
    void choose_mask() noexcept;

    UnitSet set_;
    BlockMask mask_of_block_ = &looked_up_mask;
    std::uint64_t unwanted_ = 0; ///< flips the mask when the units outside are wanted

    /// Each unit of the set, as often as a vector holds it: as bytes, if all fit into bytes.
    alignas(16) std::array<std::array<unsigned char, 16>, most_compared_units> compared_{};
};

} // namespace textio::parser
