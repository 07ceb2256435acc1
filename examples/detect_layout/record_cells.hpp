#pragma once

#include "byte_buffer.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <array>
#include <cstddef>
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
        joined_ = {};
    }

    /// Whether no value holds a quote, a line ending or the delimiter, or begins or ends with a
    /// blank. If not, they may or may not.
    [[nodiscard]] bool is_plain() const noexcept { return is_plain_; }

    /// The record with its delimiters, to be written over, if each is one byte between two values
    /// and the values are plain. Otherwise nothing.
    [[nodiscard]] std::span<char> joined() const noexcept { return joined_; }

    /// Whether a value holds U+FFFD.
    [[nodiscard]] bool has_replacement() const noexcept { return has_replacement_; }

private:
    bool take_narrowed(std::span<const textio::Field> fields);
    void take_each(std::span<const textio::Field> fields);
    [[nodiscard]] std::string_view unquoted(const textio::Field& field, std::string_view value);
    [[nodiscard]] std::u16string_view value_of(const textio::Field& field);
    [[nodiscard]] bool is_blank(char16_t unit) const;

    const textio::parser::options& options_;
    char16_t delimiter_;
    std::array<bool, 128> blanks_{}; ///< of ASCII
    bool has_usual_blanks_;
    std::u16string value_;
    ByteBuffer bytes_;
    ByteBuffer unquoted_bytes_;
    std::vector<std::size_t> ends_;
    std::vector<std::string_view> cells_;
    std::span<char> joined_;
    bool is_plain_ = false;
    bool has_replacement_ = false;
};

} // namespace detect_layout
