/// \file
/// The part of a text that is in memory.
#pragma once

#include "textio/field.hpp"
#include "textio/platform/text_stream.hpp"

#include <cstddef>
#include <utility>

namespace textio::reading {

/// What lies ahead in a text: all of it, or of a stream as much as has been asked for.
class Window {
public:
    explicit Window(Field text) noexcept : text_(std::move(text)) {}
    explicit Window(zentor::io::text::stream::TextStream& stream) noexcept : stream_(&stream) {}

    [[nodiscard]] Field ahead() const noexcept {
        return stream_ == nullptr ? text_ : Field(stream_->position, units_of_stream());
    }

    /// Whether nothing comes behind what lies ahead.
    [[nodiscard]] bool is_last() const noexcept { return stream_ == nullptr || stream_->at_eof; }

    /// Moves on by so many units, which lie ahead.
    void pass(std::size_t units) noexcept;

    /// Asks the source for so many units more, unless `is_last`. Drops what has been passed.
    void fill(std::size_t units);

private:
    [[nodiscard]] std::size_t units_of_stream() const noexcept {
        return static_cast<std::size_t>(stream_->data_end - stream_->position);
    }

    Field text_;
    zentor::io::text::stream::TextStream* stream_ = nullptr; ///< null for a text in memory
};

} // namespace textio::reading
