#include "search/punctuation_search.hpp"

#include "ascii.hpp"
#include "search/vector.hpp"
#include "textio/field.hpp"

#include <algorithm>

namespace textio::detection {

using vector::Bytes;
using vector::Units;

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

namespace {

/// Which of the 16 units from `units` on are letters, digits, outside ASCII, or among the `count`
/// units in `known`. One is taken off each unit before units are narrowed to bytes. That keeps
/// ASCII apart from all else: its units become 0xFF and 0 to 0x7E, `end_of_text` becomes 0xFE, and
/// the others become 0x7F to 0xFD.
template <class Known>
Bytes familiar_units(const Known& known, std::size_t count, const char16_t* units) noexcept {
    const Units one = Units::all(1);
    const Bytes bytes = Bytes::narrowed(Units::load(units).minus(one),
                                        Units::load(units + Units::count).minus(one));
    const Bytes lower_case = bytes.either(Bytes::all(0x20));
    Bytes familiar = lower_case.in_range('z' - 1, 26).either(bytes.in_range('9' - 1, 10));
    familiar = familiar.either(bytes.in_range(0xFD, 0x7F));
    for (std::size_t i = 0; i < count; ++i) {
        familiar = familiar.either(bytes.equal(Bytes::load(known[i].data())));
    }
    return familiar;
}

} // namespace

const char16_t* PunctuationSearch::skip_familiar_blocks(const char16_t* begin,
                                                        const char16_t* end) const noexcept {
    constexpr std::ptrdiff_t step = block_units;
    if (end - begin < step || known_count_ > compared_.size()) {
        return begin;
    }
    const auto familiar = [this](const char16_t* units) {
        return familiar_units(compared_, known_count_, units);
    };
    const auto both_familiar = [&](const char16_t* units) {
        return familiar(units).both(familiar(units + step));
    };
    while (end - begin >= 4 * step &&
           both_familiar(begin).both(both_familiar(begin + 2 * step)).are_all_set()) {
        begin += 4 * step;
    }
    while (end - begin >= step && familiar(begin).are_all_set()) {
        begin += step;
    }
    return end - begin < step && familiar(end - step).are_all_set() ? end : begin;
}

} // namespace textio::detection
