#include "detection/blank_columns.hpp"

#include "address.hpp"
#include "detection/line_sample.hpp"

#include <algorithm>
#include <bit>
#include <string_view>

namespace textio::detection {

namespace {

constexpr std::size_t word_positions = parser::UnitSearch::block_units;

std::size_t words_for(std::size_t positions) {
    return positions / word_positions + (positions % word_positions == 0 ? 0 : 1);
}

std::uint64_t lowest_bits(std::size_t count) {
    return ~std::uint64_t{0} >> (word_positions - count);
}

} // namespace

BlankColumns::BlankColumns(std::size_t positions, const Field& whole)
    : others_(std::u16string_view(&blank, 1), parser::UnitSearch::Wanted::outside),
      first_block_(address_of(whole.data)),
      last_block_(
          whole.size < word_positions ? 0 : address_of(whole.data + whole.size - word_positions)),
      blank_(words_for(positions), ~std::uint64_t{0}), positions_(positions) {}

void BlankColumns::add_line(const Field& text, std::size_t length) {
    if (length > positions_) {
        extend(length);
    }
    for (std::size_t start = 0; start < text.size; start += word_positions) {
        const std::size_t count = std::min(word_positions, text.size - start);
        const char16_t* const units = text.data + start;
        std::uint64_t lost = blank_[start / word_positions] & others_among(units, count);
        for (; lost != 0; lost &= lost - 1) {
            lose_blank(start + static_cast<std::size_t>(std::countr_zero(lost)));
        }
    }
}

/// One bit for each of the `count` units, set where it is not blank. The end of a line is the start
/// of the next, so most often a whole block can be looked at, which is quicker.
std::uint64_t BlankColumns::others_among(const char16_t* units, std::size_t count) const noexcept {
    const auto address = address_of(units);
    const bool is_within = first_block_ <= address && address <= last_block_;
    return is_within ? others_.mask(units, units + word_positions) & lowest_bits(count)
                     : others_.mask(units, units + count);
}

bool BlankColumns::is_blank(std::size_t position) const noexcept {
    return ((blank_[position / word_positions] >> (position % word_positions)) & 1U) != 0;
}

void BlankColumns::extend(std::size_t length) {
    const bool joins_last_run = positions_ > 0 && !is_blank(positions_ - 1);
    runs_ += joins_last_run ? 0U : 1U;
    if (const std::size_t used = positions_ % word_positions; used != 0) {
        blank_.back() &= lowest_bits(used);
    }
    blank_.resize(words_for(length), 0);
    positions_ = length;
}

/// A position without blank is a run of its own, joins the run beside it, or joins two to one.
void BlankColumns::lose_blank(std::size_t position) {
    blank_[position / word_positions] &= ~(std::uint64_t{1} << (position % word_positions));
    const bool joins_left = position > 0 && !is_blank(position - 1);
    const bool joins_right = position + 1 < positions_ && !is_blank(position + 1);
    if (joins_left && joins_right) {
        --runs_;
    } else if (!joins_left && !joins_right) {
        ++runs_;
    }
}

std::vector<std::size_t> BlankColumns::widths() const {
    std::vector<std::size_t> widths;
    std::size_t start = 0;
    for (std::size_t position = 1; position < positions_; ++position) {
        if (!is_blank(position - 1) && is_blank(position)) {
            widths.push_back(position - start);
            start = position;
        }
    }
    if (positions_ > start) {
        widths.push_back(positions_ - start);
    }
    return widths;
}

} // namespace textio::detection
