#pragma once

#include "byte_buffer.hpp"
#include "textio/field.hpp"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace detect_layout {

/// What a table is written as.
enum class TableFormat : std::uint8_t { comma_separated, tab_separated, json_lines };

/// A column as it is to be written.
struct WrittenColumn {
    std::string name; ///< in UTF-8
    bool is_number = false;
};

class ColumnValues;

/// Writes records in UTF-8, each with a line feed behind it.
class RecordWriter {
public:
    RecordWriter() = default;
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    virtual ~RecordWriter() = default;

    /// Writes the line with the names, where the format has one.
    virtual void write_names(ByteBuffer& out) const = 0;

    /// Writes a record of at least one cell, which may have more or fewer cells than there are
    /// columns.
    virtual void write(std::span<const textio::Field> cells, ByteBuffer& out) = 0;
};

/// `values` gives the values, and must outlive the writer.
[[nodiscard]] std::unique_ptr<RecordWriter>
make_writer(TableFormat format, std::vector<WrittenColumn> columns, ColumnValues& values);

} // namespace detect_layout
