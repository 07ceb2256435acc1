#include "search/unit_search.hpp"

#include "search/vector.hpp"

#include <algorithm>
#include <bit>
#include <cstring>

namespace textio::parser {

using vector::Bytes;
using vector::Units;

UnitSet::UnitSet(std::u16string_view units) : units_(units) {
    std::sort(units_.begin(), units_.end());
    units_.erase(std::unique(units_.begin(), units_.end()), units_.end());
    for (const char16_t unit : units_) {
        if (unit >= low_units) {
            break;
        }
        low_[unit / 64U] |= std::uint64_t{1} << (unit % 64U);
        ++low_count_;
    }
}

bool are_disjoint(const UnitSet& a, const UnitSet& b) {
    return std::none_of(a.units().begin(), a.units().end(),
                        [&b](char16_t unit) { return b.contains(unit); });
}

UnitSearch::UnitSearch(std::u16string_view units, Wanted wanted)
    : set_(units), unwanted_(wanted == Wanted::outside ? ~std::uint64_t{0} : 0) {
    if (!set_.units().empty() && set_.units().size() <= most_compared_units) {
        choose_mask();
    }
}

/// The first few units are looked at one by one: where hits stand close together, that is faster.
std::size_t UnitSearch::find(const Field& text, std::size_t from,
                             std::uint64_t unwanted) const noexcept {
    constexpr std::size_t few_units = 4;
    const std::size_t few_end = std::min(text.size, from + few_units);
    for (; from < few_end; ++from) {
        if (set_.contains(text.data[from]) == (unwanted == 0)) {
            return from;
        }
    }
    while (from < text.size) {
        const std::size_t count = std::min(block_units, text.size - from);
        const char16_t* const begin = text.data + from;
        const std::uint64_t hits = count == block_units
                                       ? mask_of_block_(*this, begin) ^ unwanted
                                       : mask_of_last_block(begin, begin + count, unwanted);
        if (hits != 0) {
            return from + static_cast<std::size_t>(std::countr_zero(hits));
        }
        from += count;
    }
    return text.size;
}

/// The last block of a text is shorter than a mask, and what lies behind it is not ours to read.
std::uint64_t UnitSearch::mask_of_last_block(const char16_t* begin, const char16_t* end,
                                             std::uint64_t unwanted) const noexcept {
    std::array<char16_t, block_units> block{};
    const auto count = static_cast<std::size_t>(end - begin);
    std::copy(begin, end, block.begin());
    return (mask_of_block_(*this, block.data()) ^ unwanted) & ((std::uint64_t{1} << count) - 1);
}

std::uint64_t UnitSearch::looked_up_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t hits = 0;
    for (std::size_t i = 0; i < block_units; ++i) {
        hits |= std::uint64_t{search.set_.contains(units[i]) ? 1U : 0U} << i;
    }
    return hits;
}

namespace {

/// One bit for each unit of a block, from what `answers_of` says of each 16 of them.
template <class AnswersOf>
std::uint64_t mask_of(const char16_t* units, const AnswersOf& answers_of) noexcept {
    const auto answers = [&](std::size_t part) {
        const char16_t* const begin = units + part * Bytes::count;
        return answers_of(Units::load(begin), Units::load(begin + Units::count));
    };
    return Bytes::bits({answers(0), answers(1), answers(2), answers(3)});
}

} // namespace

// The units are narrowed to bytes first, which halves the comparing. A unit below 0x7F stays what
// it is, 0xFFFF becomes 0xFF, and nothing else becomes one of these bytes. So it is exact for a set
// of such units, which nearly all sets are.
template <std::size_t count>
std::uint64_t UnitSearch::byte_mask(const UnitSearch& search, const char16_t* units) noexcept {
    return mask_of(units, [&search](Units low, Units high) {
        const Bytes text = Bytes::narrowed(low, high);
        Bytes hits = text.equal(Bytes::load(search.compared_[0].data()));
        for (std::size_t i = 1; i < count; ++i) {
            hits = hits.either(text.equal(Bytes::load(search.compared_[i].data())));
        }
        return hits;
    });
}

std::uint64_t UnitSearch::unit_mask(const UnitSearch& search, const char16_t* units) noexcept {
    return mask_of(units, [&search](Units low, Units high) {
        Bytes hits = Bytes::all(0);
        for (std::size_t i = 0; i < search.set_.units().size(); ++i) {
            hits = hits.either(Bytes::equal(low, high, Units::load(search.compared_[i].data())));
        }
        return hits;
    });
}

void UnitSearch::choose_mask() noexcept {
    static constexpr std::array<BlockMask, most_compared_units> byte_masks{
        &byte_mask<1>, &byte_mask<2>, &byte_mask<3>, &byte_mask<4>,
        &byte_mask<5>, &byte_mask<6>, &byte_mask<7>, &byte_mask<8>};
    const std::u16string& units = set_.units();
    const bool fit_in_bytes = std::all_of(units.begin(), units.end(), [](char16_t unit) {
        return unit < 0x7F || unit == end_of_text;
    });
    mask_of_block_ = fit_in_bytes ? byte_masks[units.size() - 1] : &unit_mask;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (fit_in_bytes) {
            compared_[i].fill(static_cast<unsigned char>(units[i]));
        } else {
            std::array<char16_t, Units::count> copies{};
            copies.fill(units[i]);
            std::memcpy(compared_[i].data(), copies.data(), sizeof copies);
        }
    }
}

} // namespace textio::parser
