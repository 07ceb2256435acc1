#include "parser/unit_search.hpp"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace textio::parser {

UnitSet::UnitSet(std::u16string_view units) : units_(units) {
    std::sort(units_.begin(), units_.end());
    units_.erase(std::unique(units_.begin(), units_.end()), units_.end());
    for (const char16_t unit : units_) {
        if (unit < low_units) {
            low_[unit / 64U] |= std::uint64_t{1} << (unit % 64U);
        } else {
            high_.push_back(unit);
        }
    }
}

UnitSearch::UnitSearch(std::u16string_view units, Wanted wanted)
    : set_(units), unwanted_(wanted == Wanted::outside ? ~std::uint64_t{0} : 0) {
    if (!set_.units().empty() && set_.units().size() <= most_compared_units) {
        choose_mask();
    }
}

void UnitSearch::remember_block(bool remember) const noexcept {
    remembers_ = remember;
    block_begin_ = nullptr;
    block_end_ = nullptr;
}

std::size_t UnitSearch::next_from_block(const Field& text, std::size_t from) const noexcept {
    while (from < text.size) {
        const char16_t* const begin = text.data + from;
        const std::size_t count = std::min(block_units, text.size - from);
        const std::uint64_t hits = count == block_units ? mask_(*this, begin) ^ unwanted_
                                                        : mask_of_last_block(begin, count);
        if (hits != 0) {
            if (remembers_) {
                block_begin_ = begin;
                block_end_ = begin + count;
                block_hits_ = hits;
            }
            return from + static_cast<std::size_t>(std::countr_zero(hits));
        }
        from += count;
    }
    return text.size;
}

/// The last block is shorter than a mask, and what lies behind it is not ours to read.
std::uint64_t UnitSearch::mask_of_last_block(const char16_t* units,
                                             std::size_t count) const noexcept {
    std::array<char16_t, block_units> block{};
    std::copy_n(units, count, block.begin());
    return (mask_(*this, block.data()) ^ unwanted_) & ((std::uint64_t{1} << count) - 1);
}

std::uint64_t UnitSearch::plain_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t hits = 0;
    for (std::size_t i = 0; i < block_units; ++i) {
        hits |= std::uint64_t{search.set_.contains(units[i])} << i;
    }
    return hits;
}

#if defined(__SSE2__)

namespace {

__m128i load(const void* bytes) noexcept {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

std::uint64_t bits(__m128i bytes) noexcept {
    return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(bytes)));
}

} // namespace

// The units are narrowed to bytes first, which halves the comparing. Narrowing turns a unit above
// 0xFF into 0 or 0xFF, so it is exact for a set that holds neither of the two.
template <std::size_t count>
std::uint64_t UnitSearch::byte_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t mask = 0;
    for (std::size_t at = 0; at < block_units; at += 16) {
        const __m128i text = _mm_packus_epi16(load(units + at), load(units + at + 8));
        __m128i hits = _mm_cmpeq_epi8(text, load(search.compared_[0].data()));
        for (std::size_t i = 1; i < count; ++i) {
            hits = _mm_or_si128(hits, _mm_cmpeq_epi8(text, load(search.compared_[i].data())));
        }
        mask |= bits(hits) << at;
    }
    return mask;
}

std::uint64_t UnitSearch::unit_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t mask = 0;
    for (std::size_t at = 0; at < block_units; at += 16) {
        const __m128i low = load(units + at);
        const __m128i high = load(units + at + 8);
        __m128i hits = _mm_setzero_si128();
        for (std::size_t i = 0; i < search.set_.units().size(); ++i) {
            const __m128i wanted = load(search.compared_[i].data());
            hits = _mm_or_si128(
                hits, _mm_packs_epi16(_mm_cmpeq_epi16(low, wanted), _mm_cmpeq_epi16(high, wanted)));
        }
        mask |= bits(hits) << at;
    }
    return mask;
}

void UnitSearch::choose_mask() noexcept {
    static constexpr std::array<BlockMask, most_compared_units> byte_masks{
        &byte_mask<1>, &byte_mask<2>, &byte_mask<3>, &byte_mask<4>,
        &byte_mask<5>, &byte_mask<6>, &byte_mask<7>, &byte_mask<8>};
    const std::u16string& units = set_.units();
    const bool fit_in_bytes = units.front() > 0 && units.back() < 0xFF;
    mask_ = fit_in_bytes ? byte_masks[units.size() - 1] : &unit_mask;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const __m128i copies = fit_in_bytes ? _mm_set1_epi8(static_cast<char>(units[i]))
                                            : _mm_set1_epi16(static_cast<short>(units[i]));
        _mm_store_si128(reinterpret_cast<__m128i*>(compared_[i].data()), copies);
    }
}

#else

void UnitSearch::choose_mask() noexcept {}

#endif

std::size_t plain_next(const UnitSet& set, const Field& text, std::size_t from) noexcept {
    while (from < text.size && !set.contains(text.data[from])) {
        ++from;
    }
    return from;
}

} // namespace textio::parser
