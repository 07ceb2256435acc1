#include "parser/short_way/plain_records.hpp"

#include <algorithm>
#include <bit>
#include <span>

namespace textio::parser {

namespace {

/// Whether nothing but `unit` stands in the block at `begin`, found by looking at all its units at
/// once.
template <std::size_t size>
bool is_block_of(const char16_t* begin, char16_t unit) {
    char16_t difference = 0;
    for (const char16_t other : std::span<const char16_t, size>(begin, size)) {
        difference = static_cast<char16_t>(difference | (other ^ unit));
    }
    return difference == 0;
}

/// Where the run of `unit` that starts at `begin` ends. A long run is passed in whole blocks.
const char16_t* end_of_run(const char16_t* begin, const char16_t* end, char16_t unit) {
    constexpr std::ptrdiff_t block = 64;
    while (end - begin >= block && begin[block - 1] == unit && is_block_of<block>(begin, unit)) {
        begin += block;
    }
    return std::find_if(begin, end, [unit](char16_t other) { return other != unit; });
}

} // namespace

PlainRecords::PlainRecords(const LineShape& shape, ReadLimits limits, Field& text,
                           ReadCounts& counts, SampleWriter& sample)
    : blanks_(shape.blanks), line_ends_(shape.line_ends), usual_line_end_(line_ends_.usual_unit()),
      unplain_rests_(blanks_.set().units() + std::u16string(shape.unplain_starts)),
      unplain_behind_blanks_(std::u16string(shape.unplain_starts).append(shape.comment_start) +
                             end_of_text),
      unplain_starts_(unplain_behind_blanks_.units() + blanks_.set().units() +
                      line_ends_.first_units().units()),
      keeps_empty_lines_(shape.keeps_empty_lines),
      blank_lines_are_empty_(shape.blank_lines_are_empty),
      usual_empty_lines_(keeps_empty_lines_ &&
                         !unplain_behind_blanks_.contains(static_cast<char16_t>(usual_line_end_))),
      limits_(limits), text_(text), counts_(counts), sample_(sample), end_(text.data + text.size),
      start_(text.data) {}

void PlainRecords::resume(bool behind_comment) noexcept {
    start_ = text_.data;
    behind_comment_ = behind_comment ? start_ : nullptr;
    taken_ = 0;
    empty_lines_ = 0;
    rows_wanted_ = limits_.rows - counts_.rows;
    lines_wanted_ = limits_.lines - counts_.lines;
    most_taken_ = std::min(rows_wanted_, lines_wanted_);
}

void PlainRecords::pause() noexcept {
    const auto consumed = static_cast<std::size_t>(start_ - text_.data);
    text_.advance(consumed);
    counts_.consumed += consumed;
    counts_.rows += taken_;
    counts_.lines += taken_ + empty_lines_;
}

std::size_t PlainRecords::other_line_ending_at(const char16_t* at) const noexcept {
    return line_ends_.match_at(Field(at, static_cast<std::size_t>(end_ - at)), 0);
}

bool PlainRecords::at_record_behind_blanks() {
    if (is_behind_comment()) {
        return !unplain_rests_.contains(*start_);
    }
    while (is_wanted()) {
        const char16_t* const content =
            blanks_.set().contains(*start_) ? end_of_blanks(start_) : start_;
        if (content == end_ || unplain_behind_blanks_.contains(*content)) {
            return false;
        }
        if (!line_ends_.first_units().contains(*content)) {
            return true;
        }
        if (!take_empty_line(content)) {
            return false;
        }
    }
    return false;
}

/// Looks at whole blocks from the start, since a run of blanks may be of any length.
const char16_t* PlainRecords::end_of_blanks(const char16_t* at) const noexcept {
    constexpr int block = static_cast<int>(UnitSearch::block_units);
    int blanks = block;
    while (blanks == block && at != end_) {
        const char16_t* const block_end = end_ - at < block ? end_ : at + block;
        blanks = std::countr_one(blanks_.mask(at, block_end));
        at += blanks;
    }
    return at;
}

/// Takes the line that may end at `at`, behind blanks, and if it is empty, those behind it that are
/// alike. Gives whether it was empty and is kept.
bool PlainRecords::take_empty_line(const char16_t* at) {
    if (*start_ == usual_line_end_ && usual_empty_lines_) {
        take_usual_empty_lines();
        return true;
    }
    const std::size_t length = line_ending_at(at);
    const bool is_empty = at == start_ || blank_lines_are_empty_;
    if (length == 0 || !is_empty || !keeps_empty_lines_) {
        return false;
    }
    take_empty_lines(at + length, 1);
    return true;
}

void PlainRecords::take_usual_empty_lines() {
    const std::size_t lines_left = lines_wanted_ - taken_ - empty_lines_;
    const char16_t* const limit =
        start_ + std::min(lines_left, static_cast<std::size_t>(end_ - start_));
    const char16_t* const run_end =
        end_of_run(start_, limit, static_cast<char16_t>(usual_line_end_));
    take_empty_lines(run_end, static_cast<std::size_t>(run_end - start_));
}

void PlainRecords::take_empty_lines(const char16_t* next, std::size_t count) {
    sample_.add_empty_lines(count, next);
    empty_lines_ += count;
    most_taken_ = std::min(rows_wanted_, lines_wanted_ - empty_lines_);
    start_ = next;
}

} // namespace textio::parser
