#pragma once

#include "byte_buffer.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace detect_layout {

/// The values of the cells of one record after the other, in UTF-8.
class RecordCells {
public:
    /// Cells that are read under `options`, which must outlive this object. `delimiter` is what
    /// will stand between them.
    RecordCells(const textio::parser::options& options, char delimiter);

    /// Takes the fields of the next record, of which there is at least one.
    void take(std::span<const textio::Field> fields);

    /// The values, good until the next record is taken.
    [[nodiscard]] std::span<const std::string_view> cells() const noexcept { return cells_; }

    /// Puts `value`, which has to be as plain as a number, into the place of a value. What it views
    /// must outlive the record.
    void replace(std::size_t index, std::string_view value) noexcept {
        cells_[index] = value;
        plain_[index] = 1;
        joined_ = {};
    }

    /// Whether the value holds no quote, line ending or delimiter, and neither begins nor ends with
    /// a blank. If not, it may or may not.
    [[nodiscard]] bool is_plain(std::size_t index) const noexcept {
        return static_cast<bool>(plain_[index]);
    }

    /// The values with the delimiter between each two, if they are plain and stand so in the
    /// record, and its delimiters are single ones. Otherwise nothing.
    [[nodiscard]] std::string_view joined() const noexcept { return joined_; }

    /// Whether a value holds U+FFFD.
    [[nodiscard]] bool has_replacement() const noexcept { return has_replacement_; }

private:
    void take_plain(std::span<const textio::Field> fields, char* bytes, std::size_t size);
    [[nodiscard]] std::string_view trimmed(std::string_view text) const;
    [[nodiscard]] std::string_view unquoted(const textio::Field& field, std::string_view text);
    [[nodiscard]] std::string_view encoded(std::u16string_view value);
    [[nodiscard]] std::u16string_view value_of(const textio::Field& field);
    [[nodiscard]] bool is_blank(char16_t unit) const;

    const textio::parser::options& options_;
    std::array<bool, 128> blanks_{}; ///< of ASCII
    char delimiter_;
    char sought_; ///< the delimiter, unless it is in none of the cells
    char quote_;
    bool has_ascii_quote_;
    bool has_usual_blanks_;
    std::u16string value_;
    ByteBuffer bytes_;       ///< of the record, as if it were ASCII
    ByteBuffer other_bytes_; ///< of the values that are not in there
    std::vector<std::string_view> cells_;
    std::vector<std::uint8_t> plain_; ///< of each cell, whether it is
    std::string_view joined_;
    bool has_replacement_ = false;
};

} // namespace detect_layout
