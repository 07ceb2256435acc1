#include "textio/fixed_stream.hpp"

#include "search/guarded_delim.hpp"
#include "textio/platform/delimiter_set.hpp"

#include <algorithm>
#include <memory>

namespace textio {

using zentor::io::text::stream::TextStream;

namespace {

constexpr std::size_t view_limit = 0x400000; ///< the largest view, in code units
constexpr std::size_t fill_chunk = 0x20000;  ///< the unit in which the buffer grows, in code units

std::size_t units_ahead(const TextStream& stream) {
    return static_cast<std::size_t>(stream.data_end - stream.position);
}

/// Grows the buffer so that it can hold position `ahead` and fills the new room. The stream takes
/// the new text in only after the source has delivered it. So a source may throw.
void fill_up_to(const TextStream& stream, std::size_t ahead) {
    const auto kept = static_cast<std::size_t>(stream.data_end - stream.buffer_begin);
    const std::size_t wanted = (ahead + 1) / fill_chunk * fill_chunk + kept + fill_chunk;
    stream.resizeInternalBuffer(wanted);
    char16_t* const write_at = stream.buffer_begin + kept;
    char16_t* const room_end = stream.data_end;
    stream.data_end = write_at;
    const auto room = static_cast<std::size_t>(room_end - write_at);
    const std::size_t delivered = std::min(stream.source->read(write_at, room_end), room);
    stream.at_eof = delivered < room;
    stream.data_end = write_at + delivered;
}

/// The unit `ahead` units in front of the stream's position, or `end_of_text`.
char16_t stream_at(const TextStream& stream, std::size_t ahead) {
    if (ahead >= units_ahead(stream) && !stream.at_eof) {
        fill_up_to(stream, ahead);
    }
    return ahead < units_ahead(stream) ? stream.position[ahead] : end_of_text;
}

/// The largest power of two up to `view_limit` at which the stream still has text, or 0.
std::size_t last_power_with_text(const TextStream& stream) {
    std::size_t ahead = view_limit;
    while (ahead > 0 && stream_at(stream, ahead) == end_of_text) {
        ahead /= 2;
    }
    return ahead;
}

/// The number of units ahead, between `low` units, which are there, and twice as many.
std::size_t text_length_from(const TextStream& stream, std::size_t low) {
    std::size_t high = low >= 2 ? 2 * low : low;
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        if (stream_at(stream, middle) == end_of_text) {
            high = middle - 1;
        } else {
            low = middle;
        }
    }
    while (stream_at(stream, low) != end_of_text) {
        ++low;
    }
    return low;
}

/// The number of units of `whole` that end right behind the start of its last line ending, or 0. A
/// pair such as CR LF is cut behind the LF if LF alone is a line ending too, for the walk meets it
/// first.
std::size_t length_of_whole_lines(const Field& whole, const Delim& line_endings) {
    for (std::size_t length = whole.size; length > 0; --length) {
        if (line_endings.match_at(whole, length - 1) != 0) {
            return length;
        }
    }
    return 0;
}

/// The same from the front, for long line endings: in this direction they cost no more than others.
std::size_t length_of_long_lines(const Field& whole, const parser::GuardedDelim& line_endings) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < whole.size; ++at) {
        length = line_endings.match_at(whole, at) == 0 ? length : at + 1;
    }
    return length;
}

} // namespace

Field get_fixed_stream(const TextStream& stream, const std::vector<std::u16string>& line_endings) {
    const std::size_t low = last_power_with_text(stream);
    if (low < view_limit) {
        const std::size_t length = text_length_from(stream, low);
        return {stream.position, length};
    }
    const Field whole(stream.position, view_limit);
    const std::shared_ptr<Delim> set = get_or_create_delim(line_endings);
    const bool has_long =
        !set->strings.empty() && set->strings.front().size() >= parser::LongString::least_units;
    return {stream.position, has_long
                                 ? length_of_long_lines(whole, parser::GuardedDelim(line_endings))
                                 : length_of_whole_lines(whole, *set)};
}

} // namespace textio
