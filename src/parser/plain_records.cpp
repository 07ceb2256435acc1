#include "parser/plain_records.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <new>
#include <span>
#include <string>

namespace textio::parser {

namespace {

/// The unit with which comments start.
std::u16string opener_start(const CommentScanner* comments) {
    return comments == nullptr ? std::u16string() : comments->opener.substr(0, 1);
}

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

/// So many values are added to an array at once: one by one, each waits for the array's new end.
constexpr std::size_t added_at_once = 64;

constexpr double least_growth = 1.5; ///< so that moving the values stays in proportion
constexpr double most_growth = 100;  ///< what a few lines are trusted with

/// By how much an array grows of which `expected` is foretold. More than `trusted` is come to in
/// two like steps, for then the first holds little that must be moved.
double trusted_growth(double expected, double trusted) {
    const double step = expected > trusted ? std::sqrt(expected) : expected;
    return std::clamp(step, least_growth, trusted);
}

/// Makes room for `least` values at least, and for `wanted` if there is the memory: what was
/// foretold may never come, so the half of it does as well.
template <class Value>
void make_room_for(std::vector<Value>& values, double wanted, double least) {
    const auto most = static_cast<double>(values.max_size());
    for (double room = std::min(wanted, most); room > least; room /= 2) {
        try {
            values.reserve(static_cast<std::size_t>(room));
            return;
        } catch (const std::bad_alloc&) {
            continue;
        }
    }
    if (least >= most) {
        throw std::bad_alloc();
    }
    values.reserve(static_cast<std::size_t>(least));
}

} // namespace

PlainRecords::PlainRecords(const LineShape& shape, ReadLimits limits, Field& text,
                           ReadCounts& counts, FieldArray& array)
    : blanks_(shape.blanks), line_ends_(shape.line_ends), usual_line_end_(line_ends_.usual_unit()),
      unplain_behind_blanks_(std::u16string(shape.unplain_starts)
                                 .append(opener_start(shape.comments))
                                 .append(1, end_of_text)),
      unplain_rests_(std::u16string(shape.unplain_starts)
                         .append(shape.blanks.set().units())
                         .append(1, end_of_text)),
      skipped_starts_(shape.skipped_starts), keeps_empty_lines_(shape.keeps_empty_lines),
      blank_lines_are_empty_(shape.blank_lines_are_empty),
      comment_keeps_columns_(shape.comment_keeps_columns),
      usual_empty_lines_(keeps_empty_lines_ &&
                         !unplain_behind_blanks_.contains(static_cast<char16_t>(usual_line_end_))),
      limits_(limits), text_(text), counts_(counts), array_(array), begin_(text.data),
      end_(text.data + text.size), start_(text.data) {
    unplain_starts_ = UnitSet(unplain_behind_blanks_.units() + blanks_.set().units() +
                              line_ends_.first_units().units());
    unusual_rests_ = UnitSet(unplain_rests_.units() + skipped_starts_.units() +
                             line_ends_.first_units().units());
    if (shape.comments != nullptr && can_have_plain_comments(*shape.comments) &&
        !skipped_starts_.contains(shape.comments->opener.front())) {
        comments_.emplace(*shape.comments, line_ends_, begin_, end_);
    }
}

void PlainRecords::resume() noexcept {
    start_ = text_.data;
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

std::size_t PlainRecords::unusual_line_ending_at(const char16_t* at) const noexcept {
    return line_ends_.match_at(Field(at, static_cast<std::size_t>(end_ - at)), 0);
}

bool PlainRecords::at_record_behind_blanks() {
    while (is_wanted()) {
        const char16_t* const content = skip_blanks(start_);
        if (content == end_) {
            return false;
        }
        const bool may_be_comment = unplain_behind_blanks_.contains(*content);
        if (!may_be_comment && !line_ends_.first_units().contains(*content)) {
            return true;
        }
        if (!(may_be_comment ? take_comment(content) : take_empty_line(content))) {
            return false;
        }
        if (is_behind_comment()) {
            return true;
        }
    }
    return false;
}

/// Whole blocks are looked at from the start: how many blanks there are, nobody can foretell.
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

/// Takes the comment at `at`, up to where its line ends or a record starts. Gives whether there is
/// a comment and it is plain.
bool PlainRecords::take_comment(const char16_t* at) {
    std::size_t lines = 0;
    const char16_t* const behind = comments_ ? comments_->pass(start_, at, lines) : nullptr;
    if (behind == nullptr || lines > lines_left()) {
        return false;
    }
    if (!comments_->are_blocks()) {
        take_empty_lines(behind, lines);
        return true;
    }
    if (behind != end_ && *behind == usual_line_end_) {
        take_empty_lines(behind + 1, lines);
        return true;
    }
    const char16_t* content = behind;
    if (content != end_ && blanks_.set().contains(*content)) {
        ++content; // most often there is one
    }
    if (content != end_ && !unusual_rests_.contains(*content)) {
        start_behind_comment(behind, content, lines);
        return true;
    }
    return take_unusual_rest(behind, skip_blanks(content), lines);
}

/// Takes the rest of the line on which a block comment of `lines` lines ends at `behind`, with
/// blanks up to `content`, unless a record starts there. Gives whether it is plain.
bool PlainRecords::take_unusual_rest(const char16_t* behind, const char16_t* content,
                                     std::size_t lines) {
    while (content != end_ && skipped_starts_.contains(*content)) {
        ++content;
    }
    const std::size_t line_end = content == end_ ? 0 : line_ending_at(content);
    if (content == end_ || line_end != 0) {
        take_empty_lines(content + line_end, lines);
        return true;
    }
    if (unplain_rests_.contains(*content)) {
        return false;
    }
    start_behind_comment(behind, content, lines);
    return true;
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
    const auto left = static_cast<std::size_t>(end_ - start_);
    const char16_t* const limit = start_ + std::min(lines_left(), left);
    const char16_t* const run_end =
        end_of_run(start_, limit, static_cast<char16_t>(usual_line_end_));
    take_empty_lines(run_end, static_cast<std::size_t>(run_end - start_));
}

/// Adds so many lines without fields, of which there may be millions, up to `next`.
void PlainRecords::add_line_ends(const char16_t* next, std::size_t count) {
    constexpr std::size_t line = 64 / sizeof(std::size_t); // values in a line of the cache
    std::vector<std::size_t>& line_ends = array_.line_ends;
    if (line_ends.capacity() - line_ends.size() < count) {
        make_room_for_lines(next, count);
    }
    while (count > 0) {
        const std::size_t added = std::min(count, added_at_once);
        const auto first = line_ends.insert(line_ends.end(), added, array_.fields.size());
        for (std::size_t i = 0; i < added; i += line) {
            fetch_ahead(&first[static_cast<std::ptrdiff_t>(i)]);
        }
        count -= added;
    }
}

void PlainRecords::add_empty_fields(const char16_t* begin, const char16_t* end) {
    while (begin != end) {
        const std::size_t added = std::min(static_cast<std::size_t>(end - begin), added_at_once);
        Field* const first = &*array_.fields.insert(array_.fields.end(), added, Field(begin, 0));
        for (Field& field : std::span(first, added)) {
            field.data = begin++;
            fetch_ahead(&field);
        }
    }
}

void PlainRecords::give_record_back() {
    array_.fields.resize(array_.line_ends.empty() ? 0 : array_.line_ends.back());
}

const char16_t* PlainRecords::make_room_within_record(const char16_t* at) {
    if (array_.fields.capacity() - array_.fields.size() < static_cast<std::size_t>(long_record)) {
        make_room(at, counts_.rows + taken_ + 1);
    }
    return checkpoint(at);
}

/// How many times what was read up to `at`, in the first so many rows, the whole text gives if it
/// goes on as it began.
double PlainRecords::expected_growth(const char16_t* at, std::size_t rows) const noexcept {
    constexpr double margin = 1.05; // lines are not all alike
    const auto share = [](std::size_t whole, std::size_t part) {
        return static_cast<double>(whole) / static_cast<double>(part);
    };
    return margin * std::min(share(static_cast<std::size_t>(end_ - begin_),
                                   static_cast<std::size_t>(at - begin_)),
                             share(limits_.rows, rows));
}

/// Makes room for as many fields as are to be expected, up to `at` in the row of number `rows`, so
/// that a long sample is moved once and not at every doubling. The first lines of a text can
/// mislead, so they count for little. Later ones are believed as long as little memory is at stake,
/// for pages that are never written to cost nothing.
void PlainRecords::make_room(const char16_t* at, std::size_t rows) {
    constexpr std::size_t telling_rows = 32;
    constexpr std::size_t little_room = (64U << 20U) / sizeof(Field);
    const auto held = static_cast<double>(array_.fields.size());
    const double believed = rows < telling_rows ? 0 : static_cast<double>(little_room) / held;
    const double growth =
        trusted_growth(expected_growth(at, rows), std::max(believed, most_growth));
    const auto lines = static_cast<double>(array_.line_ends.size());
    make_room_for(array_.fields, held * growth + spare_fields, held * least_growth + spare_fields);
    roomy_fields_ = array_.fields.capacity() - spare_fields;
    make_room_for(array_.line_ends, lines * growth + 1, lines * least_growth + 1);
}

/// Makes room for `count` more lines at least, and for as many as are to be expected, where the
/// lines up to `at` need more room than their fields have asked for.
void PlainRecords::make_room_for_lines(const char16_t* at, std::size_t count) {
    const double growth =
        trusted_growth(expected_growth(at, counts_.rows + taken_ + 1), most_growth);
    const auto held = static_cast<double>(array_.line_ends.size());
    make_room_for(array_.line_ends, held * growth,
                  std::max(held * least_growth, held + static_cast<double>(count)));
}

} // namespace textio::parser
