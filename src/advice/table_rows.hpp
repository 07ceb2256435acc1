/// \file
/// The rows of a reading's table one after the other, whatever its layout.
#pragma once

#include "advice/reading.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace textio::advice {

/// Walks through the rows from the first line of a table on, rows of another width included.
class TableRows {
public:
    using Cells = std::vector<std::u16string_view>;

    /// `lines` is the text read as one field a line, with the comments of the reading. The walk
    /// begins at `first_line` of the sample and ends behind `last_line`. All must outlive it.
    TableRows(const Reading& reading, const FieldArray& lines, std::size_t first_line,
              std::size_t last_line);

    /// Goes to the next row; false if there is none.
    bool next();

    /// Its cells, as many as the table has columns; missing ones are empty. Good until the next
    /// call of `next`.
    [[nodiscard]] const Cells& cells() const { return cells_; }

    /// How many of these cells the row has: those behind are missing.
    [[nodiscard]] std::size_t fields() const { return fields_; }

    /// The sample's line of it.
    [[nodiscard]] std::size_t line() const { return line_; }

    /// Where it stands in the text; null for a row of empty fields alone.
    [[nodiscard]] const char16_t* place() const { return place_; }

    /// Where its first field stands in the text, which may be empty.
    [[nodiscard]] const char16_t* begin() const { return begin_; }

private:
    void cut(std::u16string_view text);
    void take(std::span<const Field> fields);

    const Reading& reading_;
    const FieldArray& sample_;
    std::size_t columns_;
    std::size_t next_;
    std::size_t end_;
    std::size_t line_ = 0;
    std::size_t fields_ = 0;
    const char16_t* place_ = nullptr;
    const char16_t* begin_ = nullptr;
    Cells cells_;
};

/// The lines of the sample between which a reading's table stands, the last one included.
[[nodiscard]] std::size_t first_table_line(const Reading& reading);
[[nodiscard]] std::size_t last_table_line(const Reading& reading);

} // namespace textio::advice
