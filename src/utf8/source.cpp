#include "textio/utf8.hpp"

#include "utf8/sequences.hpp"

#include <algorithm>

namespace textio::utf8 {

namespace {

constexpr std::size_t buffer_bytes = 0x10000;
constexpr std::size_t most_places = 1024;

} // namespace

ByteSource::~ByteSource() = default;

Source::Source(ByteSource& bytes)
    : source_(bytes), buffer_(new char[buffer_bytes]), begin_(buffer_.get()), end_(begin_),
      places_apart_(buffer_bytes) {
    places_.reserve(most_places);
    places_.emplace_back();
}

Source::~Source() = default;

std::size_t Source::read(char16_t* begin, char16_t* end) {
    const std::ptrdiff_t given = std::min(static_cast<std::ptrdiff_t>(held_.size()), end - begin);
    char16_t* at = std::copy_n(held_.begin(), given, begin);
    held_.erase(0, static_cast<std::size_t>(given));
    try {
        drop_mark();
        at = decode_on(at, end);
        while (at != end && !has_ended_) {
            refill();
            at = decode_on(at, end);
        }
    } catch (...) {
        held_.append(begin, at);
        throw;
    }
    return static_cast<std::size_t>(at - begin);
}

/// Decodes from the buffer what there is room for from `at` up to `end`.
char16_t* Source::decode_on(char16_t* at, char16_t* end) {
    const Progress progress = decode_to(begin_, end_, has_ended_, at, end);
    replaced_ += progress.replaced;
    place_.units += static_cast<std::size_t>(progress.units - at);
    place_.bytes += static_cast<std::size_t>(progress.bytes - begin_);
    begin_ = progress.bytes;
    return end - progress.units == 1 ? split_pair(progress.units) : progress.units;
}

/// Delivers the first unit of the pair that may stand next, for which there is no more room, and
/// holds the second.
char16_t* Source::split_pair(char16_t* at) {
    if (begin_ == end_) {
        return at;
    }
    const Sequence sequence = sequence_at(begin_, end_);
    if (sequence.units() != 2) {
        return at;
    }
    char16_t pair[2];
    begin_ = decode_to(begin_, end_, has_ended_, pair, pair + 2).bytes;
    place_.units += 2;
    place_.bytes += sequence.bytes;
    held_.push_back(pair[1]);
    *at = pair[0];
    return at + 1;
}

/// Puts further bytes behind those that were not decoded, which are few.
void Source::refill() {
    const char* const rest_end = std::copy(begin_, end_, buffer_.get());
    const auto rest = static_cast<std::size_t>(rest_end - buffer_.get());
    begin_ = buffer_.get();
    end_ = rest_end;
    note_place();
    const std::size_t room = buffer_bytes - rest;
    const std::size_t count = source_.read(buffer_.get() + rest, buffer_.get() + buffer_bytes);
    has_ended_ = count == 0;
    end_ += std::min(count, room);
}

void Source::drop_mark() {
    while (!has_started_) {
        if (static_cast<std::size_t>(end_ - begin_) < mark_bytes && !has_ended_) {
            refill();
            continue;
        }
        has_started_ = true;
        had_mark_ = mark_stands_at(begin_, end_);
        if (had_mark_) {
            begin_ += mark_bytes;
            place_.bytes = mark_bytes;
        }
    }
}

/// Where there are too many places, every second one is dropped.
void Source::note_place() {
    if (place_.bytes - places_.back().bytes < places_apart_) {
        return;
    }
    if (places_.size() == most_places) {
        for (std::size_t kept = 0; kept < most_places / 2; ++kept) {
            places_[kept] = places_[2 * kept];
        }
        places_.resize(most_places / 2);
        places_apart_ *= 2;
    } else {
        places_.push_back(place_);
    }
}

Place Source::place_before(std::size_t position) const noexcept {
    const auto behind = std::upper_bound(
        places_.begin(), places_.end(), position,
        [](std::size_t wanted, const Place& place) { return wanted < place.units; });
    return *(behind - 1);
}

} // namespace textio::utf8
