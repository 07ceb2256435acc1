/// \file
/// The one search that all reading stands on: the next unit of a text that is in a given set.
///
/// A text is looked at in blocks of 64 units. Each block becomes a mask with one bit per unit, set
/// where the unit is in the set, and hits are then taken from the mask bit by bit. The units
/// between two hits are never looked at one by one.
#pragma once

#include "textio/field.hpp"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace textio::parser {

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
        return !high_.empty() && unit >= high_.front() && unit <= high_.back() &&
               high_.find(unit) != std::u16string::npos;
    }

    std::array<std::uint64_t, low_units / 64> low_{}; ///< one bit for each unit below 256
    std::u16string high_;                             ///< the other units, ascending
    std::u16string units_;
};

/// The position behind the run of units of `set` that stands at `from` of `text`.
inline std::size_t skip_units(const UnitSet& set, const Field& text, std::size_t from) noexcept {
    while (from < text.size && set.contains(text.data[from])) {
        ++from;
    }
    return from;
}

/// Finds the units of a set, or those outside it.
class UnitSearch {
public:
    /// What is searched for: units of the set, or units outside it.
    enum class Wanted : std::uint8_t { inside, outside };

    UnitSearch() = default;
    explicit UnitSearch(std::u16string_view units, Wanted wanted = Wanted::inside);

    /// The first position of `text` from `from` on whose unit is wanted, or `text.size`. `from` is
    /// at most `text.size`. Nothing outside the text is read.
    [[nodiscard]] std::size_t next(const Field& text, std::size_t from) const noexcept {
        const char16_t* const start = text.data + from;
        if (start >= block_begin_ && start < block_end_) {
            const auto offset = static_cast<std::size_t>(start - block_begin_);
            if (const std::uint64_t hits = block_hits_ >> offset; hits != 0) {
                return from + static_cast<std::size_t>(std::countr_zero(hits));
            }
            from += static_cast<std::size_t>(block_end_ - start);
        }
        return next_from_block(text, from);
    }

    /// With `remember`, keeps the mask of the block that was looked at last, so that a walk through
    /// a text looks at each unit once. Only for as long as the text that is searched stays as it
    /// is; turning it off forgets the block.
    void remember_block(bool remember) const noexcept;

    [[nodiscard]] const UnitSet& set() const noexcept { return set_; }

private:
    static constexpr std::size_t block_units = 64;

    /// More units than this, and looking each unit of the text up is cheaper than comparing it with
    /// all of the set.
    static constexpr std::size_t most_compared_units = 8;

    using BlockMask = std::uint64_t (*)(const UnitSearch&, const char16_t*) noexcept;

    [[nodiscard]] std::size_t next_from_block(const Field& text, std::size_t from) const noexcept;
    [[nodiscard]] std::uint64_t mask_of_last_block(const char16_t* units,
                                                   std::size_t count) const noexcept;

    static std::uint64_t plain_mask(const UnitSearch& search, const char16_t* units) noexcept;
    template <std::size_t count>
    static std::uint64_t byte_mask(const UnitSearch& search, const char16_t* units) noexcept;
    static std::uint64_t unit_mask(const UnitSearch& search, const char16_t* units) noexcept;
    void choose_mask() noexcept;

    UnitSet set_;
    BlockMask mask_ = &plain_mask;
    std::uint64_t unwanted_ = 0; ///< flips the mask when the units outside are wanted

    /// Each unit of the set, as often as a vector holds it: as bytes, if all fit into bytes.
    alignas(16) std::array<std::array<unsigned char, 16>, most_compared_units> compared_{};

    // The block looked at last, null while nothing is remembered.
    mutable const char16_t* block_begin_ = nullptr;
    mutable const char16_t* block_end_ = nullptr;
    mutable std::uint64_t block_hits_ = 0;
    mutable bool remembers_ = false;
};

/// What `UnitSearch::next` gives, found by looking at one unit after the other. The measure of the
/// fast search in the tests.
[[nodiscard]] std::size_t plain_next(const UnitSet& set, const Field& text,
                                     std::size_t from) noexcept;

} // namespace textio::parser
