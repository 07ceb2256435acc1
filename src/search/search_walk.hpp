/// \file
/// A search that goes through a text once, from left to right.
#pragma once

#include "search/unit_search.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace textio::parser {

/// Finds the units that a `UnitSearch` wants, each once, one after the other. Keeps what is left of
/// the mask of the block that it is in, so no unit is compared twice, and the next hit does not
/// wait for what is done about the last. For use as a local variable of the loop that walks: its
/// state then stays in registers.
class SearchWalk {
public:
    /// A walk through the units from `begin` up to `end`, which must not change meanwhile.
    SearchWalk(const UnitSearch& search, const char16_t* begin, const char16_t* end) noexcept
        : search_(search), block_(begin), block_end_(begin), end_(end) {}

    /// The first wanted unit behind the last one given, or the end.
    [[nodiscard]] const char16_t* next() noexcept {
        if (hits_ == 0) [[unlikely]] {
            if (!load_hits()) {
                return end_;
            }
        }
        return hit_at_hand();
    }

    /// Whether the block with the unit given last has further wanted units.
    [[nodiscard]] bool has_hit_at_hand() const noexcept { return hits_ != 0; }

    /// The first of these, which must be there.
    [[nodiscard]] const char16_t* hit_at_hand() noexcept {
        const char16_t* const hit = block_ + static_cast<unsigned>(std::countr_zero(hits_));
        hits_ &= hits_ - 1;
        return hit;
    }

    /// The first wanted unit from `from` on, or the end. `from` is behind what earlier calls gave.
    [[nodiscard]] const char16_t* next(const char16_t* from) noexcept {
        if (from < block_end_) [[likely]] {
            const auto passed = static_cast<unsigned>(from - block_);
            hits_ = hits_ >> passed << passed;
        } else {
            hits_ = 0;
            block_end_ = from;
        }
        return next();
    }

    /// Whether the unit given last is the first of a block of nothing but wanted units.
    [[nodiscard]] bool is_at_full_block() const noexcept { return hits_ == ~std::uint64_t{1}; }

private:
    /// Goes on to the next block with a hit. Gives whether there is one.
    [[nodiscard]] bool load_hits() noexcept {
        while (hits_ == 0 && block_end_ != end_) {
            load_block(block_end_);
        }
        return hits_ != 0;
    }

    void load_block(const char16_t* from) noexcept {
        constexpr auto block_units = static_cast<std::ptrdiff_t>(UnitSearch::block_units);
        block_ = from;
        block_end_ = end_ - from < block_units ? end_ : from + block_units;
        hits_ = search_.mask(block_, block_end_);
    }

    const UnitSearch& search_;
    const char16_t* block_;
    const char16_t* block_end_;
    const char16_t* end_;
    std::uint64_t hits_ = 0;
};

} // namespace textio::parser
