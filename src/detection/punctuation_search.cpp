#include "detection/punctuation_search.hpp"

#include "ascii.hpp"
#include "textio/field.hpp"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace textio::detection {

PunctuationSearch::PunctuationSearch(std::u16string_view known) {
    for (char16_t unit = 0; unit < ascii_units; ++unit) {
        is_familiar_[unit] = ascii::is_letter(unit) || ascii::is_digit(unit);
    }
    for (const char16_t unit : known) {
        add_known(unit);
    }
}

void PunctuationSearch::add_known(char16_t unit) noexcept {
    if (unit >= ascii_units || is_familiar_[unit]) {
        return;
    }
    is_familiar_[unit] = true;
    if (known_count_ < compared_.size()) {
        compared_[known_count_].fill(static_cast<unsigned char>(unit - 1));
    }
    ++known_count_;
}

const char16_t* PunctuationSearch::next(const char16_t* begin, const char16_t* end) const noexcept {
    return std::find_if(skip_familiar_blocks(begin, end), end,
                        [this](char16_t unit) { return is_wanted(unit); });
}

bool PunctuationSearch::is_wanted(char16_t unit) const noexcept {
    return unit < ascii_units ? !is_familiar_[unit] : unit == end_of_text;
}

#if defined(__SSE2__)

namespace {

__m128i load(const void* bytes) noexcept {
    return _mm_loadu_si128(static_cast<const __m128i*>(bytes));
}

/// Which bytes, as signed numbers, are `last` or one of the `count - 1` before it.
__m128i in_range(__m128i bytes, int last, int count) noexcept {
    constexpr int greatest = 0x7F;
    const __m128i moved = _mm_add_epi8(bytes, _mm_set1_epi8(static_cast<char>(greatest - last)));
    return _mm_cmpgt_epi8(moved, _mm_set1_epi8(static_cast<char>(greatest - count)));
}

/// Which of the 16 units from `units` on are letters, digits, outside ASCII, or among the `count`
/// units in `known`; a byte for each. One is taken off each unit, and then units are narrowed to
/// bytes by saturation of signed numbers. That keeps ASCII apart from all else: its units become
/// 0xFF and 0 to 0x7E, `end_of_text` becomes 0xFE, and the others become 0x7F to 0xFD.
template <std::size_t count, class Known>
__m128i familiar_units(const Known& known, const char16_t* units) noexcept {
    const __m128i one = _mm_set1_epi16(1);
    const __m128i bytes =
        _mm_packs_epi16(_mm_sub_epi16(load(units), one), _mm_sub_epi16(load(units + 8), one));
    const __m128i lower_case = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
    __m128i familiar =
        _mm_or_si128(in_range(lower_case, 'z' - 1, 26), in_range(bytes, '9' - 1, 10));
    familiar = _mm_or_si128(familiar, in_range(bytes, 0xFD, 0x7F));
    for (std::size_t i = 0; i < count; ++i) {
        familiar = _mm_or_si128(familiar, _mm_cmpeq_epi8(bytes, load(known[i].data())));
    }
    return familiar;
}

bool all_set(__m128i bytes) noexcept {
    return _mm_movemask_epi8(bytes) == 0xFFFF;
}

} // namespace

template <std::size_t count>
const char16_t* PunctuationSearch::skip_blocks(const Known& known, const char16_t* begin,
                                               const char16_t* end) noexcept {
    constexpr std::ptrdiff_t vector = block_units;
    const auto familiar = [&known](const char16_t* units) {
        return familiar_units<count>(known, units);
    };
    const auto both_familiar = [&](const char16_t* units) {
        return _mm_and_si128(familiar(units), familiar(units + vector));
    };
    while (end - begin >= 4 * vector &&
           all_set(_mm_and_si128(both_familiar(begin), both_familiar(begin + 2 * vector)))) {
        begin += 4 * vector;
    }
    while (end - begin >= vector && all_set(familiar(begin))) {
        begin += vector;
    }
    return end - begin < vector && all_set(familiar(end - vector)) ? end : begin;
}

const char16_t* PunctuationSearch::skip_familiar_blocks(const char16_t* begin,
                                                        const char16_t* end) const noexcept {
    using Skip = const char16_t* (*)(const Known&, const char16_t*, const char16_t*) noexcept;
    static constexpr std::array<Skip, most_compared_units + 1> skips{
        &skip_blocks<0>, &skip_blocks<1>, &skip_blocks<2>, &skip_blocks<3>, &skip_blocks<4>,
        &skip_blocks<5>, &skip_blocks<6>, &skip_blocks<7>, &skip_blocks<8>};
    return end - begin >= block_units && known_count_ < skips.size()
               ? skips[known_count_](compared_, begin, end)
               : begin;
}

#else

const char16_t* PunctuationSearch::skip_familiar_blocks(const char16_t* begin,
                                                        const char16_t* /*end*/) const noexcept {
    return begin;
}

#endif

} // namespace textio::detection
