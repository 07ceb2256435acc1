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

const char16_t* PunctuationSearch::skip_familiar_blocks(const char16_t* begin,
                                                        const char16_t* end) const noexcept {
    if (end - begin < block_units || known_count_ > most_compared_units) {
        return begin;
    }
    for (; end - begin >= block_units; begin += block_units) {
        if (!is_familiar_block(begin)) {
            return begin;
        }
    }
    return is_familiar_block(end - block_units) ? end : begin;
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

} // namespace

// One is taken off each unit, and then units are narrowed to bytes by saturation of signed numbers.
// That keeps ASCII apart from all else: its units become 0xFF and 0 to 0x7E, `end_of_text` becomes
// 0xFE, and the others become 0x7F to 0xFD.
bool PunctuationSearch::is_familiar_block(const char16_t* units) const noexcept {
    const __m128i one = _mm_set1_epi16(1);
    const __m128i bytes =
        _mm_packs_epi16(_mm_sub_epi16(load(units), one), _mm_sub_epi16(load(units + 8), one));
    const __m128i lower_case = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
    __m128i familiar =
        _mm_or_si128(in_range(lower_case, 'z' - 1, 26), in_range(bytes, '9' - 1, 10));
    familiar = _mm_or_si128(familiar, in_range(bytes, 0xFD, 0x7F));
    for (std::size_t i = 0; i < known_count_; ++i) {
        familiar = _mm_or_si128(familiar, _mm_cmpeq_epi8(bytes, load(compared_[i].data())));
    }
    return _mm_movemask_epi8(familiar) == 0xFFFF;
}

#else

bool PunctuationSearch::is_familiar_block(const char16_t* units) const noexcept {
    return std::none_of(units, units + block_units,
                        [this](char16_t unit) { return is_wanted(unit); });
}

#endif

} // namespace textio::detection
