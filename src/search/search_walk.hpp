/// \file
/// Searches that go through a text once, from left to right.
#pragma once

#include "search/unit_search.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace textio::parser {

/// Finds the hits of a text, each once, one after the other. Keeps what is left of the mask of the
/// block that it is in, so no unit is compared twice, and the next hit does not wait for what is
/// done about the last. For use as a local variable of the loop that walks: its state then stays in
/// registers.
///
/// What a hit is, `Hits` says, which looks at a text block by block:
/// - `of_block` gives the hits among at most 64 units, which follow those of the last block;
/// - `from` gives those of that block again, but as if the text began behind so many of its units;
///   it is handed those that were not given yet;
/// - `start_anew` lets the text begin with the next block.
template <class Hits>
class BlockWalk {
public:
    /// A walk through the units from `begin` up to `end`, which must not change meanwhile.
    BlockWalk(Hits source, const char16_t* begin, const char16_t* end) noexcept
        : source_(std::move(source)), block_(begin), block_end_(begin), end_(end) {}

    /// The first hit behind the last one given, or the end.
    [[nodiscard]] const char16_t* next() noexcept {
        if (hits_ == 0) [[unlikely]] {
            if (!load_hits()) {
                return end_;
            }
        }
        return hit_at_hand();
    }

    /// Whether the block with the hit given last has further ones.
    [[nodiscard]] bool has_hit_at_hand() const noexcept { return hits_ != 0; }

    /// The first of these, which must be there.
    [[nodiscard]] const char16_t* hit_at_hand() noexcept {
        const char16_t* const hit = block_ + static_cast<unsigned>(std::countr_zero(hits_));
        hits_ &= hits_ - 1;
        return hit;
    }

    /// The first hit from `from` on, as if the text began there, or the end. `from` is behind what
    /// earlier calls gave, or there.
    [[nodiscard]] const char16_t* next(const char16_t* from) noexcept {
        if (from < block_end_) [[likely]] {
            hits_ = source_.from(hits_, static_cast<unsigned>(from - block_));
        } else {
            source_.start_anew();
            hits_ = 0;
            block_end_ = from;
        }
        return next();
    }

    /// Whether the hit given last is the first of a block of nothing but hits.
    [[nodiscard]] bool is_at_full_block() const noexcept { return hits_ == ~std::uint64_t{1}; }

    [[nodiscard]] const Hits& source() const noexcept { return source_; }

private:
    /// Goes on to the next block with a hit. Gives whether there is one.
    [[nodiscard]] bool load_hits() noexcept {
        constexpr auto block_units = static_cast<std::ptrdiff_t>(UnitSearch::block_units);
        while (hits_ == 0 && block_end_ != end_) {
            block_ = block_end_;
            block_end_ = end_ - block_ < block_units ? end_ : block_ + block_units;
            hits_ = source_.of_block(block_, block_end_);
        }
        return hits_ != 0;
    }

    Hits source_;
    const char16_t* block_;
    const char16_t* block_end_;
    const char16_t* end_;
    std::uint64_t hits_ = 0;
};

/// `mask` without its lowest bits.
inline std::uint64_t without_lowest(std::uint64_t mask, unsigned count) noexcept {
    return mask >> count << count;
}

/// Units that a search wants.
class WantedUnits {
public:
    // NOLINTNEXTLINE(google-explicit-constructor): a search is what it finds.
    WantedUnits(const UnitSearch& search) noexcept : search_(search) {}

    std::uint64_t of_block(const char16_t* begin, const char16_t* end) const noexcept {
        return search_.mask(begin, end);
    }
    static std::uint64_t from(std::uint64_t left, unsigned passed) noexcept {
        return without_lowest(left, passed);
    }
    static void start_anew() noexcept {}

private:
    const UnitSearch& search_;
};

/// Edges, where runs of delimiters separate fields: the first unit of each run, the first unit
/// behind it, and every other stop. Two masks of a block give all of its edges at once, so a run
/// costs the same whatever its length.
class RunEdges {
public:
    /// `stops` finds delimiters and other stops, `others` finds all that is no delimiter.
    RunEdges(const UnitSearch& stops, const UnitSearch& others) noexcept
        : search_(stops), others_(others) {}

    std::uint64_t of_block(const char16_t* begin, const char16_t* end) noexcept {
        const std::uint64_t delimiter_before = delimiters_ >> 63U;
        stops_ = search_.mask(begin, end);
        delimiters_ = stops_ & ~others_.mask(begin, end);
        stops_ ^= delimiters_;
        return edges(delimiter_before);
    }
    std::uint64_t from(std::uint64_t /*left*/, unsigned passed) noexcept {
        delimiters_ = without_lowest(delimiters_, passed);
        stops_ = without_lowest(stops_, passed);
        return edges(0);
    }
    void start_anew() noexcept { delimiters_ = 0; }

private:
    [[nodiscard]] std::uint64_t edges(std::uint64_t delimiter_before) const noexcept {
        constexpr std::uint64_t all_but_last = ~std::uint64_t{0} >> 1U;
        const std::uint64_t behind = (delimiters_ & all_but_last) << 1U | delimiter_before;
        return (delimiters_ ^ behind) | stops_;
    }

    const UnitSearch& search_;
    const UnitSearch& others_;
    std::uint64_t delimiters_ = 0; ///< of the block, from where the walk last started
    std::uint64_t stops_ = 0;      ///< its other stops
};

/// Stops outside quoted parts. A quote is regular if it closes a part, or if it opens one right
/// behind a stop, a closing quote or the start. Then the number of quotes in front of a unit tells
/// whether the unit is quoted, and that of all units of a block is found at once. The first quote
/// that is not regular is a hit itself, and behind it no hit means anything.
class UnquotedStops {
public:
    /// `stops` finds all stops, quotes among them, and `quotes` the quotes.
    UnquotedStops(const UnitSearch& stops, const UnitSearch& quotes) noexcept
        : search_(stops), quote_search_(quotes) {}

    std::uint64_t of_block(const char16_t* begin, const char16_t* end) noexcept {
        quotes_ = quote_search_.mask(begin, end);
        stops_ = search_.mask(begin, end) ^ quotes_;
        blocks_without_quotes_ = quotes_ == 0 ? blocks_without_quotes_ + 1 : 0;
        return hits();
    }
    std::uint64_t from(std::uint64_t /*left*/, unsigned passed) noexcept {
        quotes_ = without_lowest(quotes_, passed);
        stops_ = without_lowest(stops_, passed);
        is_quoted_ = 0;
        may_open_ = std::uint64_t{1} << passed;
        return hits();
    }
    void start_anew() noexcept {
        is_quoted_ = 0;
        may_open_ = 1;
    }

    /// How many blocks were passed since the last with a quote.
    [[nodiscard]] std::size_t blocks_without_quotes() const noexcept {
        return blocks_without_quotes_;
    }

private:
    std::uint64_t hits() noexcept {
        const std::uint64_t quoted = odd_before(quotes_) ^ is_quoted_;
        const std::uint64_t unquoted_stops = stops_ & ~quoted;
        const std::uint64_t openers = unquoted_stops | (quotes_ & ~quoted);
        const std::uint64_t irregular = quotes_ & quoted & ~(openers << 1U | may_open_);
        is_quoted_ = (quoted >> 63U) != 0 ? ~std::uint64_t{0} : 0;
        may_open_ = openers >> 63U;
        return unquoted_stops | irregular;
    }

    /// Sets each bit that has an odd number of bits set up to and including it.
    static std::uint64_t odd_before(std::uint64_t bits) noexcept {
        for (unsigned width = 1; width < 64; width *= 2) {
            bits ^= bits << width;
        }
        return bits;
    }

    const UnitSearch& search_;
    const UnitSearch& quote_search_;
    std::uint64_t quotes_ = 0;    ///< of the block, from where the walk last started
    std::uint64_t stops_ = 0;     ///< its other stops
    std::uint64_t is_quoted_ = 0; ///< all bits set if the next block begins in a quoted part
    std::uint64_t may_open_ = 1;  ///< where else a regular quote may open: at the start
    std::size_t blocks_without_quotes_ = 0;
};

using SearchWalk = BlockWalk<WantedUnits>;
using RunWalk = BlockWalk<RunEdges>;
using UnquotedWalk = BlockWalk<UnquotedStops>;

} // namespace textio::parser
