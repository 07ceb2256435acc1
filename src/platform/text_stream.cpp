#include "textio/platform/text_stream.hpp"

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>

namespace zentor::io::text::stream {

TextSource::~TextSource() = default;

TextStream::TextStream(TextSource& text_source) noexcept : source(&text_source) {}

TextStream::TextStream(std::unique_ptr<TextSource> text_source) noexcept
    : source(text_source.get()), at_eof(text_source == nullptr),
      owned_source_(std::move(text_source)) {}

TextStream::~TextStream() = default;

namespace {

using Buffer = std::unique_ptr<char16_t[]>;

Buffer try_to_make_buffer(std::size_t units) noexcept {
    constexpr std::size_t most_units = PTRDIFF_MAX / sizeof(char16_t);
    return Buffer(units > most_units ? nullptr : new (std::nothrow) char16_t[units]);
}

} // namespace

/// The buffer grows by half if memory allows, so that a text that comes in many pieces is not moved
/// at each. Where memory is short, it grows only by what is needed. The source is never asked to
/// fill more than that.
void TextStream::resizeInternalBuffer(std::size_t units) const {
    if (units > capacity_) {
        std::size_t wanted = std::max(units, capacity_ + capacity_ / 2);
        Buffer grown = try_to_make_buffer(wanted);
        if (!grown && wanted > units) {
            wanted = units;
            grown = try_to_make_buffer(wanted);
        }
        if (!grown) {
            throw std::bad_alloc();
        }
        std::copy(buffer_begin, data_end, grown.get());
        position = grown.get() + (position - buffer_begin);
        buffer_ = std::move(grown);
        buffer_begin = buffer_.get();
        capacity_ = wanted;
    }
    room_ = std::max(room_, units);
    data_end = buffer_begin + room_;
}

} // namespace zentor::io::text::stream
