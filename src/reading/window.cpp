#include "reading/window.hpp"

#include <algorithm>
#include <new>

namespace textio::reading {

using zentor::io::text::stream::TextStream;

void Window::pass(std::size_t units) noexcept {
    if (stream_ == nullptr) {
        text_.advance(units);
    } else {
        stream_->position += units;
    }
}

/// The stream takes the new text in only after the source has delivered it. So a source may throw.
void Window::fill(std::size_t units) {
    TextStream& stream = *stream_;
    const std::size_t kept = units_of_stream();
    std::copy(stream.position, stream.data_end, stream.buffer_begin);
    stream.position = stream.buffer_begin;
    stream.data_end = stream.buffer_begin + kept;
    // The room is a number of whole chunks. So a few units more that are kept do not make it grow.
    constexpr std::size_t most_units = SIZE_MAX / sizeof(char16_t);
    const std::size_t chunks = kept / units + 2;
    if (chunks > most_units / units) {
        throw std::bad_alloc();
    }
    stream.resizeInternalBuffer(chunks * units);
    char16_t* const write_at = stream.buffer_begin + kept;
    stream.data_end = write_at;
    const std::size_t delivered = std::min(stream.source->read(write_at, write_at + units), units);
    stream.at_eof = delivered < units;
    stream.data_end = write_at + delivered;
}

} // namespace textio::reading
