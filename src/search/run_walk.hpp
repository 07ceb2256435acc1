/// \file
/// A search for the ends of fields where runs of delimiters separate them.
#pragma once

#include "search/unit_search.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>

namespace textio::parser {

/// Goes through a text from left to right, like `SearchWalk`, and finds its edges: the first unit
/// of each run of delimiters, the first unit behind it, and every other stop. Two masks of a block
/// give all of its edges at once, so a run costs the same whatever its length.
class RunWalk {
public:
    /// A walk through the units from `begin` up to `end`, which must not change meanwhile. `stops`
    /// finds delimiters and other stops, `others` finds all that is no delimiter.
    RunWalk(const UnitSearch& stops, const UnitSearch& others, const char16_t* begin,
            const char16_t* end) noexcept
        : search_(stops), others_(others), block_(begin), block_end_(begin), end_(end) {}

    /// The first edge behind the last one given, or the end.
    [[nodiscard]] const char16_t* next() noexcept {
        if (edges_ == 0) [[unlikely]] {
            if (!load_edges()) {
                return end_;
            }
        }
        const char16_t* const edge = block_ + static_cast<unsigned>(std::countr_zero(edges_));
        edges_ &= edges_ - 1;
        return edge;
    }

    /// The first edge from `from` on, or the end. What stands before `from` is not looked at, so a
    /// delimiter there is an edge. `from` is not before what earlier calls gave.
    [[nodiscard]] const char16_t* next(const char16_t* from) noexcept {
        if (from < block_end_) [[likely]] {
            const auto passed = static_cast<unsigned>(from - block_);
            delimiters_ = delimiters_ >> passed << passed;
            stops_ = stops_ >> passed << passed;
            find_edges(0);
        } else {
            delimiters_ = 0;
            edges_ = 0;
            block_end_ = from;
        }
        return next();
    }

private:
    /// Goes on to the next block with an edge. Gives whether there is one.
    [[nodiscard]] bool load_edges() noexcept {
        while (edges_ == 0 && block_end_ != end_) {
            load_block(block_end_);
        }
        return edges_ != 0;
    }

    void load_block(const char16_t* from) noexcept {
        constexpr auto block_units = static_cast<std::ptrdiff_t>(UnitSearch::block_units);
        const std::uint64_t delimiter_before = delimiters_ >> 63U;
        block_ = from;
        block_end_ = end_ - from < block_units ? end_ : from + block_units;
        stops_ = search_.mask(block_, block_end_);
        delimiters_ = stops_ & ~others_.mask(block_, block_end_);
        stops_ ^= delimiters_;
        find_edges(delimiter_before);
    }

    void find_edges(std::uint64_t delimiter_before) noexcept {
        constexpr std::uint64_t all_but_last = ~std::uint64_t{0} >> 1U;
        const std::uint64_t behind = (delimiters_ & all_but_last) << 1U | delimiter_before;
        edges_ = (delimiters_ ^ behind) | stops_;
    }

    const UnitSearch& search_;
    const UnitSearch& others_;
    const char16_t* block_;
    const char16_t* block_end_;
    const char16_t* end_;
    std::uint64_t delimiters_ = 0; ///< of the block, from where the walk last started
    std::uint64_t stops_ = 0;      ///< its other stops
    std::uint64_t edges_ = 0;      ///< its edges that have not been given
};

} // namespace textio::parser
