#pragma once

#include "byte_buffer.hpp"
#include "record_cells.hpp"

#include <cstdint>
#include <memory>
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

/// Writes records in UTF-8, each with a line feed behind it.
class RecordWriter {
public:
    RecordWriter() = default;
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    virtual ~RecordWriter() = default;

    /// Writes the line with the names, where the format has one.
    virtual void write_names(ByteBuffer& out) const = 0;

    /// Writes a record, which may have more or fewer cells than there are columns.
    virtual void write(RecordCells& record, ByteBuffer& out) = 0;
};

/// What stands between the values in `format`.
[[nodiscard]] char delimiter_of(TableFormat format) noexcept;

[[nodiscard]] std::unique_ptr<RecordWriter> make_writer(TableFormat format,
                                                        std::vector<WrittenColumn> columns);

} // namespace detect_layout
