#include "textio/platform/text_stream.hpp"

#include <algorithm>
#include <utility>

namespace zentor::io::text::stream {

TextSource::~TextSource() = default;

TextStream::TextStream(TextSource& text_source) noexcept : source(&text_source) {}

TextStream::TextStream(std::unique_ptr<TextSource> text_source) noexcept
    : source(text_source.get()), at_eof(text_source == nullptr),
      owned_source_(std::move(text_source)) {}

TextStream::~TextStream() = default;

void TextStream::resizeInternalBuffer(std::size_t units) const {
    if (units > capacity_) {
        std::unique_ptr<char16_t[]> grown(new char16_t[units]);
        std::copy(buffer_begin, data_end, grown.get());
        position = grown.get() + (position - buffer_begin);
        buffer_ = std::move(grown);
        buffer_begin = buffer_.get();
        capacity_ = units;
    }
    data_end = buffer_begin + capacity_;
}

} // namespace zentor::io::text::stream
