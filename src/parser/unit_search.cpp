#include "parser/unit_search.hpp"

#include <algorithm>
#include <bit>
#include <utility>
#include <vector>

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

bool are_disjoint(std::initializer_list<std::u16string_view> sets) {
    std::vector<std::pair<char16_t, std::size_t>> units; // each with the number of its set
    std::size_t number = 0;
    for (const std::u16string_view set : sets) {
        for (const char16_t unit : set) {
            units.emplace_back(unit, number);
        }
        ++number;
    }
    std::sort(units.begin(), units.end());
    return std::adjacent_find(units.begin(), units.end(), [](const auto& left, const auto& right) {
               return left.first == right.first && left.second != right.second;
           }) == units.end();
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
    constexpr std::size_t half = block_units / 2;
    std::array<char16_t, block_units> block{};
    const auto count = static_cast<std::size_t>(end - begin);
    if (count < half) {
        std::copy(begin, end, block.begin());
    } else { // two copies that overlap, as the compiler knows how long each is
        std::copy_n(begin, half, block.begin());
        std::copy_n(end - half, half, block.begin() + (count - half));
    }
    return (mask_of_block_(*this, block.data()) ^ unwanted) & ((std::uint64_t{1} << count) - 1);
}

std::uint64_t UnitSearch::plain_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t hits = 0;
    for (std::size_t i = 0; i < block_units; ++i) {
        hits |= std::uint64_t{search.set_.contains(units[i]) ? 1U : 0U} << i;
    }
    return hits;
}

#if defined(__SSE2__)

namespace {

__m128i load(const void* bytes) noexcept {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

void store(void* bytes, __m128i units) noexcept {
    _mm_store_si128(static_cast<__m128i*>(bytes), units);
}

std::uint64_t bits(__m128i bytes) noexcept {
    return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(bytes)));
}

} // namespace

// The units are narrowed to bytes first, which halves the comparing. Narrowing saturates signed
// numbers: it keeps the units below 0x7F and turns 0xFFFF, which is -1, into 0xFF, and nothing else
// becomes one of these bytes. So it is exact for a set of such units, which nearly all sets are.
template <std::size_t count>
std::uint64_t UnitSearch::byte_mask(const UnitSearch& search, const char16_t* units) noexcept {
    std::uint64_t mask = 0;
    for (std::size_t at = 0; at < block_units; at += 16) {
        const __m128i text = _mm_packs_epi16(load(units + at), load(units + at + 8));
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
    const bool fit_in_bytes = std::all_of(units.begin(), units.end(), [](char16_t unit) {
        return unit < 0x7F || unit == end_of_text;
    });
    mask_of_block_ = fit_in_bytes ? byte_masks[units.size() - 1] : &unit_mask;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const __m128i copies = fit_in_bytes ? _mm_set1_epi8(static_cast<char>(units[i]))
                                            : _mm_set1_epi16(static_cast<short>(units[i]));
        store(compared_[i].data(), copies);
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

std::size_t plain_skip(const UnitSet& set, const Field& text, std::size_t from) noexcept {
    while (from < text.size && set.contains(text.data[from])) {
        ++from;
    }
    return from;
}

} // namespace textio::parser
