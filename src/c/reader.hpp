/// \file
/// Reading on, with values that stay until the next record.
#pragma once

#include "textio/advice.hpp"
#include "textio/c.h"
#include "textio/field.hpp"
#include "textio/platform/text_stream.hpp"
#include "textio/reading.hpp"
#include "textio/utf8.hpp"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// Makes the library's reader at the first record, because until then its policy can be changed.
struct textio_reader {
public:
    textio_reader(const textio_layout& layout, std::size_t proposal);

    /// Reads this text, which must outlive the reader.
    void read(const textio::Field& text) { text_ = text; }

    /// Reads what the source delivers.
    void read(std::unique_ptr<textio::utf8::ByteSource> bytes);

    [[nodiscard]] bool has_begun() const noexcept { return reader_.has_value(); }
    void policy(textio::reading::Policy policy) noexcept { settings_.policy = policy; }

    /// Goes to the next record. Gives whether there is one.
    bool next();

    [[nodiscard]] std::size_t fields() const noexcept;
    [[nodiscard]] std::size_t line() const noexcept { return has_begun() ? reader_->line() : 0; }
    [[nodiscard]] textio::reading::Fault fault() const noexcept;
    [[nodiscard]] textio::reading::End end() const noexcept;
    [[nodiscard]] std::size_t irregular() const noexcept { return irregular_; }

    /// The value of a field that is there, good until `next`.
    [[nodiscard]] std::u16string_view value(std::size_t field);

    /// The same in UTF-8.
    [[nodiscard]] const std::string& utf8_value(std::size_t field);

private:
    void begin();

    textio::advice::Proposal proposal_;
    bool is_by_rules_;
    textio::reading::Settings settings_;
    std::size_t irregular_ = 0;

    textio::Field text_; ///< unless there is a stream
    std::unique_ptr<textio::utf8::ByteSource> bytes_;
    std::optional<textio::utf8::Source> source_;
    std::optional<zentor::io::text::stream::TextStream> stream_;
    std::optional<textio::reading::Reader> reader_;

    // One for each field: those that are there stay where they are when others are added.
    std::deque<std::u16string> buffers_;
    std::deque<std::string> utf8_values_;
};
