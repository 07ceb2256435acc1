/// \file
/// The lines of a text, counted while it is read.
#pragma once

#include "parser/text_reader.hpp"
#include "textio/field.hpp"

#include <cstddef>

namespace textio::reading {

/// Tells on which line of the text a record of a batch starts. Line endings are looked for only in
/// batches with quotes: elsewhere, each line of the batch is one of the text.
///
/// The order of calls:
///
///     { start { line_at } finish }
class LineCount {
public:
    explicit LineCount(std::size_t line) noexcept : line_(line), first_line_(line) {}

    /// Starts a batch, behind the last one.
    void start(const parser::TextReader& reader, const Field& text) noexcept {
        reader_ = &reader;
        text_ = text;
        counted_ = 0;
        first_line_ = line_;
        is_counting_ = reader.has_quotes(text);
    }

    /// Ends it, all of its `lines` being read.
    void finish(std::size_t lines) noexcept {
        line_ = is_counting_ ? line_of(text_.size) : first_line_ + lines;
        is_counting_ = false;
        first_line_ = line_;
    }

    /// The line of the record that is line `index` of the batch and has its first field at `place`.
    /// No place may be before one asked for earlier.
    [[nodiscard]] std::size_t line_at(std::size_t index, const char16_t* place) noexcept {
        return is_counting_ ? line_of(static_cast<std::size_t>(place - text_.data))
                            : first_line_ + index;
    }

private:
    std::size_t line_of(std::size_t position) noexcept {
        for (std::size_t next = reader_->next_line(text_, counted_);
             counted_ < text_.size && next <= position;
             next = reader_->next_line(text_, counted_)) {
            counted_ = next;
            ++line_;
        }
        return line_;
    }

    const parser::TextReader* reader_ = nullptr;
    Field text_;
    std::size_t counted_ = 0; ///< the start of line `line_` in the text of the batch
    std::size_t line_;
    std::size_t first_line_; ///< on which the batch starts
    bool is_counting_ = false;
};

} // namespace textio::reading
