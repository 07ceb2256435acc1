/// \file
/// A text that arrives piece by piece, and the buffer that it is gathered in.
#pragma once

#include "textio/export.hpp"

#include <cstddef>
#include <memory>

namespace zentor::io::text::stream {

/// Where the text of a stream comes from. A host derives from it.
class TEXTIO_EXPORT TextSource {
public:
    TextSource() = default;
    TextSource(const TextSource&) = delete;
    TextSource& operator=(const TextSource&) = delete;

    /// Fills the range from `begin` up to `end` from its start with the next code units, and gives
    /// how many it delivered. Fewer than the range has room for means that the text has ended. May
    /// throw; the stream then stands as it did before.
    virtual std::size_t read(char16_t* begin, char16_t* end) = 0;

    virtual ~TextSource();
};

/// A text source with a growing buffer in front of it. What has been read stays in the buffer.
///
/// Its state is open, and mutable in a const stream, because looking ahead fills the buffer without
/// moving the reader's position.
class TEXTIO_EXPORT TextStream {
public:
    /// A stream of the text that `text_source` delivers; the source must outlive the stream.
    explicit TextStream(TextSource& text_source) noexcept;

    /// A stream that owns its source. A null source is an empty text.
    explicit TextStream(std::unique_ptr<TextSource> text_source) noexcept;

    TextStream(const TextStream&) = delete;
    TextStream& operator=(const TextStream&) = delete;
    ~TextStream();

    /// Gives the buffer room for at least `units` code units counted from `buffer_begin`, keeps the
    /// text held, moves `buffer_begin` and `position` along if the buffer moves, and leaves
    /// `data_end` at the end of the room. Throws `std::bad_alloc` and then changes nothing.
    void resizeInternalBuffer(std::size_t units) const;

    mutable TextSource* source;               ///< where further text comes from
    mutable char16_t* buffer_begin = nullptr; ///< start of the buffer
    mutable char16_t* data_end = nullptr;     ///< end of the text held
    mutable char16_t* position = nullptr;     ///< the reader's place in the text held
    mutable bool at_eof = false;              ///< the source has no more text

private:
    std::unique_ptr<TextSource> owned_source_;
    mutable std::unique_ptr<char16_t[]> buffer_;
    mutable std::size_t capacity_ = 0; ///< code units that fit into the buffer
    mutable std::size_t room_ = 0;     ///< code units of room that were asked for
};

} // namespace zentor::io::text::stream
