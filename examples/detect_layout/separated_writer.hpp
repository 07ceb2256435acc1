#pragma once

#include "column_values.hpp"
#include "record_writer.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace detect_layout {

/// Values with something between them, and quotes around those that would be misread without.
///
/// Cells side by side that hold nothing special are copied in one go; of the others, those that
/// are quoted in a usual way are copied one by one. The rest are written by their values.
class SeparatedWriter : public RecordWriter {
public:
    SeparatedWriter(char delimiter, std::vector<WrittenColumn> columns, ColumnValues& values);

    void write_names(ByteBuffer& out) const override;
    void write(std::span<const textio::Field> cells, ByteBuffer& out) override;

private:
    using Cells = std::span<const textio::Field>;

    /// A cell without what is around its value, as long as that can be seen from its ends.
    struct Bare {
        std::u16string_view text;  ///< without blanks around it
        std::u16string_view value; ///< without quotes around it
        [[nodiscard]] bool is_quoted() const noexcept { return text.size() != value.size(); }
    };

    // Each of these writes a delimiter behind every value.
    void write_run(Cells cells, std::size_t first, ByteBuffer& out);
    [[nodiscard]] bool copy_run(Cells cells, ByteBuffer& out) const;
    void write_cell(const textio::Field& cell, std::size_t column, ByteBuffer& out);
    [[nodiscard]] char* copy_cell(const Bare& cell, char* to) const;
    void write_number(const textio::Field& cell, std::size_t column, ByteBuffer& out);
    [[nodiscard]] bool copy_number(std::u16string_view text, ByteBuffer& out) const;
    void write_value(std::string_view value, ByteBuffer& out) const;

    void set(std::u16string_view units, std::uint8_t trait);
    [[nodiscard]] std::uint8_t traits_of(char16_t unit) const noexcept;
    [[nodiscard]] bool is_ordinary(std::u16string_view text) const noexcept;
    [[nodiscard]] bool stand_side_by_side(Cells cells) const noexcept;
    [[nodiscard]] Bare bare(const textio::Field& cell) const noexcept;

    const char delimiter_;
    const std::vector<WrittenColumn> columns_;
    ColumnValues& values_;
    char16_t quote_;
    char narrow_quote_; ///< the quote, or if that is beyond ASCII, what is looked for anyway
    char separator_;    ///< that stands between the fields, and so in none without quotes; or 0
    char sought_; ///< the delimiter, or if it is in none of the cells, what is looked for anyway
    std::array<std::uint8_t, 129> traits_{}; ///< of each unit of ASCII, and of all others together
};

} // namespace detect_layout
