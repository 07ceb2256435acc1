#include "textio/utf8.hpp"

#include "utf8/sequences.hpp"

#include <algorithm>
#include <array>

namespace textio::utf8 {

Decoded decode(std::string_view bytes) {
    Decoded decoded;
    const char* const end = bytes.data() + bytes.size();
    decoded.had_mark = mark_stands_at(bytes.data(), end);
    bytes.remove_prefix(decoded.had_mark ? mark_bytes : 0);
    decoded.text.reserve(bytes.size()); // no sequence becomes more units than it has bytes
    std::array<char16_t, 2048> units{}; // in the cache, so that no room is filled twice
    for (const char* at = bytes.data(); at != end;) {
        const Progress progress =
            decode_to(at, end, true, units.data(), units.data() + units.size());
        decoded.text.append(units.data(), progress.units);
        decoded.replaced += progress.replaced;
        at = progress.bytes;
    }
    return decoded;
}

std::size_t byte_offset(std::string_view bytes, std::size_t position, Place start) noexcept {
    const char* at = bytes.data();
    const char* const end = at + bytes.size();
    if (start.bytes == 0 && mark_stands_at(at, end)) {
        at += mark_bytes;
    }
    std::size_t left = position - std::min(start.units, position); // units before the one wanted
    while (at != end) {
        const std::size_t most = std::min(left, static_cast<std::size_t>(end - at));
        const char* const ascii_end = end_of_ascii(at, at + most);
        left -= static_cast<std::size_t>(ascii_end - at);
        at = ascii_end;
        if (left == 0 || at == end) {
            break;
        }
        const Sequence sequence = sequence_at(at, end);
        if (sequence.units() > left) {
            break;
        }
        left -= sequence.units();
        at += sequence.bytes;
    }
    return start.bytes + static_cast<std::size_t>(at - bytes.data());
}

} // namespace textio::utf8
