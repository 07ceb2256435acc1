#pragma once

#include "bytes.hpp"
#include "character_set.hpp"
#include "counting_source.hpp"
#include "textio/field.hpp"
#include "textio/platform/text_stream.hpp"

#include <memory>
#include <string>
#include <vector>

namespace detect_layout {

/// The beginning of a text, decoded: its first whole lines, as many as are worth looking at.
class TextInput {
public:
    /// Decodes from `bytes`, in the character set `encoding` or, if that is empty, in the one that
    /// the bytes seem to be in. Throws `UserError` if the bytes cannot be read,
    /// or if `encoding` is empty and they are no text.
    TextInput(std::unique_ptr<ByteSource> bytes, const std::string& encoding,
              const std::vector<std::u16string>& line_endings);

    /// The text; good as long as this object lives.
    [[nodiscard]] const textio::Field& text() const noexcept { return text_; }

    [[nodiscard]] const CharacterSet& character_set() const noexcept { return character_set_; }

    /// The whole text, from its start on. Whoever reads from it makes `text()` invalid.
    [[nodiscard]] zentor::io::text::stream::TextStream& stream() noexcept { return *stream_; }

    /// The bytes, for how much of them has been read.
    [[nodiscard]] const ByteSource& bytes() const noexcept { return *bytes_; }

    /// Byte sequences in what has been read that meant nothing in that character set.
    [[nodiscard]] std::size_t undecodable() const noexcept { return source_->undecodable(); }

    /// Whether the text's bytes were unpacked out of gzip's compression.
    [[nodiscard]] bool is_unpacked() const noexcept { return bytes_->is_unpacked(); }

    /// Whether more text follows behind `text()`.
    [[nodiscard]] bool is_cut() const noexcept;

private:
    std::unique_ptr<ByteSource> bytes_;
    CharacterSet character_set_;
    std::unique_ptr<CountingSource> source_;
    std::unique_ptr<zentor::io::text::stream::TextStream> stream_;
    textio::Field text_;
};

} // namespace detect_layout
