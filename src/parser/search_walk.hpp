/// \file
/// A search that goes through a text once, from left to right.
#pragma once

#include "parser/unit_search.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace textio::parser {

/// Finds the units that a `UnitSearch` wants, one after the other. Keeps the mask of the block that
/// it is in, so that no unit is compared twice. For use as a local variable of the loop that walks:
/// its state then stays in registers.
class SearchWalk {
public:
    /// A walk through the units from `begin` up to `end`, which must not change meanwhile.
    SearchWalk(const UnitSearch& search, const char16_t* begin, const char16_t* end) noexcept
        : search_(search), block_(begin), block_end_(begin), end_(end) {}

    /// The first wanted unit from `from` on, or the end. `from` is no smaller than what earlier
    /// calls gave.
    [[nodiscard]] const char16_t* next(const char16_t* from) noexcept {
        while (from < end_) {
            if (from >= block_end_) {
                load_block(from);
            }
            if (const std::uint64_t hits = hits_ >> static_cast<unsigned>(from - block_);
                hits != 0) {
                return from + std::countr_zero(hits);
            }
            from = block_end_;
        }
        return end_;
    }

private:
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
