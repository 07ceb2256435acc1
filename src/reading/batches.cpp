#include "reading/batches.hpp"

#include <algorithm>
#include <utility>

namespace textio::reading {

namespace {

constexpr std::size_t batch_units = 0x20000; ///< what is read in one go
constexpr double aimed_at = 0.9;             ///< the share of the text that a batch is to take
constexpr std::size_t tail_share = 8;        ///< a last part this small waits for more text

} // namespace

Batches::Batches(enums::StrategyMode mode, const parser::options& options, Window window,
                 std::size_t chunk_units, std::size_t longest_record)
    : reader_(parser::TextReader::make(mode, options)),
      has_blocks_(options.comment_style.size() == 2),
      chunk_units_(std::max<std::size_t>(chunk_units, 1)),
      longest_record_(std::max<std::size_t>(longest_record, 1)), window_(std::move(window)) {}

void Batches::pass_lines(std::size_t& count) {
    while (count > 0) {
        const Field ahead = window_.ahead();
        const bool is_last = window_.is_last();
        const std::size_t settled = is_last ? ahead.size : reader_->settled_units(ahead);
        std::size_t passed = 0;
        std::size_t next = reader_->next_line(ahead, passed);
        while (count > 0 && passed < settled && next <= settled) {
            passed = next;
            --count;
            next = reader_->next_line(ahead, passed);
        }
        const bool is_within_line = count > 0 && next == ahead.size;
        window_.pass(is_within_line ? std::max(passed, settled) : passed);
        if (is_last) {
            count = 0; // no more lines than there are
        } else if (count > 0) {
            fill(chunk_units_);
        }
    }
}

Batches::Outcome Batches::next() {
    for (;;) {
        const Field ahead = window_.ahead();
        const bool is_tail = !window_.is_last() && ahead.size < chunk_units_ / tail_share;
        if (!is_tail) {
            if (const std::optional<Outcome> outcome = read_ahead(ahead); outcome) {
                return *outcome;
            }
        }
        get_more(is_tail ? 0 : ahead.size);
    }
}

/// What becomes of reading what lies ahead; nothing if there is more to come, and it is needed.
std::optional<Batches::Outcome> Batches::read_ahead(const Field& ahead) {
    if (ahead.size != 0 && ahead.unit_at(0) == end_of_text) {
        return Outcome::end_mark;
    }
    const bool is_last = window_.is_last();
    const std::size_t settled = is_last ? ahead.size : reader_->settled_units(ahead);
    if (settled != 0 && read_some(ahead, settled)) {
        return Outcome::lines;
    }
    if (is_last) {
        return Outcome::end_of_text;
    }
    // Where blanks can end lines, little may be settled of a long text. So its length counts as
    // well.
    const bool is_long = settled >= longest_record_ || ahead.size / 2 >= longest_record_;
    return is_long ? std::optional(Outcome::too_long) : std::nullopt;
}

/// How many lines are likely to be found in the first so many units.
std::size_t Batches::lines_to_read(std::size_t units) const noexcept {
    const auto aimed = aimed_at * static_cast<double>(std::min(units, batch_units));
    return std::max<std::size_t>(static_cast<std::size_t>(aimed / units_per_line_), 1);
}

/// Reads lines of `ahead`, none that ends behind `settled`. Gives whether there are any.
bool Batches::read_some(const Field& ahead, std::size_t settled) {
    std::size_t wanted = lines_to_read(settled);
    for (;;) {
        Field rest = ahead;
        const auto counts = reader_->read(rest, wanted, has_blocks_ ? SIZE_MAX : wanted);
        if (accept(ahead, rest, settled)) {
            return true;
        }
        // Try again with fewer lines: the last of those found was not settled, or blank ones
        // followed it.
        const std::size_t found = has_blocks_ ? counts.rows : counts.lines;
        const std::size_t fewer = found - std::min(found, found / 16 + 1);
        if (fewer == 0) {
            return has_blocks_ && read_least(ahead, settled);
        }
        wanted = std::min(wanted - 1, fewer);
        if (wanted == 0) {
            return false;
        }
    }
}

/// Reads as few lines as can be read. With block comments a read must not be limited to some lines,
/// for it might stop behind a comment, within a line. So this is how a long run of comments without
/// a record is passed.
bool Batches::read_least(const Field& ahead, std::size_t settled) {
    Field rest = ahead;
    reader_->read(rest, 1, reader_->least_lines(ahead));
    return accept(ahead, rest, settled);
}

bool Batches::accept(const Field& ahead, const Field& rest, std::size_t settled) {
    const std::size_t units = ahead.size - rest.size;
    if (units == 0 || units > settled) {
        return false;
    }
    text_ = Field(ahead.data, units);
    window_.pass(units);
    const std::size_t found = std::max<std::size_t>(lines().line_count(), 1);
    units_per_line_ = static_cast<double>(units) / static_cast<double>(found);
    return true;
}

/// Gets another chunk. Where the `held` units have no settled line, gets as many units again, so
/// that a long record is not read anew with every chunk.
void Batches::get_more(std::size_t held) {
    const std::size_t room = longest_record_ - std::min(held, longest_record_);
    fill(std::max(chunk_units_, std::min(held, room)));
}

/// Moves the window on, over text that was asked about.
void Batches::fill(std::size_t units) {
    reader_->forget_text();
    window_.fill(units);
}

} // namespace textio::reading
