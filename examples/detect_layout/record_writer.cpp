#include "record_writer.hpp"

#include "column_names.hpp"
#include "column_values.hpp"
#include "plain_numbers.hpp"
#include "separated_writer.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace detect_layout {

namespace {

/// Adds `text` as JSON has it, without quotes around it.
void append_escaped(std::string_view text, ByteBuffer& out) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t longest_escape = 6;
    char* at = out.room(longest_escape * text.size());
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (byte == '"' || byte == '\\') {
            *at++ = '\\';
            *at++ = byte;
        } else if (byte == '\n' || byte == '\t' || byte == '\r') {
            *at++ = '\\';
            *at++ = byte == '\n' ? 'n' : byte == '\t' ? 't' : 'r';
        } else if (value < 0x20) {
            at = std::copy_n("\\u00", 4, at);
            *at++ = digits[value / 16];
            *at++ = digits[value % 16];
        } else {
            *at++ = byte;
        }
    }
    out.fill_to(at);
}

/// An object for each record, without the members that it lacks. An empty value is null.
class JsonWriter : public RecordWriter {
public:
    JsonWriter(std::vector<WrittenColumn> columns, ColumnValues& values)
        : columns_(std::move(columns)), values_(values) {
        for (const WrittenColumn& column : columns_) {
            add_key(column.name);
        }
    }

    void write_names(ByteBuffer& /*out*/) const override {}

    void write(std::span<const textio::Field> cells, ByteBuffer& out) override {
        while (keys_.size() < cells.size()) {
            add_key(name_of_unnamed(keys_.size()));
        }
        for (std::size_t i = 0; i < cells.size(); ++i) {
            out.append(i == 0 ? '{' : ',');
            out.append(keys_[i]);
            write_value(values_.value(i, cells[i]), i < columns_.size() && columns_[i].is_number,
                        out);
        }
        out.append("}\n");
    }

private:
    void add_key(std::string_view name) {
        ByteBuffer key;
        key.append('"');
        append_escaped(name, key);
        key.append("\":");
        keys_.emplace_back(key.view());
    }

    void write_value(std::string_view value, bool is_number, ByteBuffer& out) {
        if (value.empty()) {
            out.append("null");
        } else if (const auto number = is_number ? json_number(value, number_) : std::string_view();
                   !number.empty()) {
            out.append(number);
        } else {
            out.append('"');
            append_escaped(value, out);
            out.append('"');
        }
    }

    const std::vector<WrittenColumn> columns_;
    ColumnValues& values_;
    std::vector<std::string> keys_; ///< escaped, with quotes and a colon
    std::string number_;
};

} // namespace

std::unique_ptr<RecordWriter> make_writer(TableFormat format, std::vector<WrittenColumn> columns,
                                          ColumnValues& values) {
    if (format == TableFormat::json_lines) {
        return std::make_unique<JsonWriter>(std::move(columns), values);
    }
    const char delimiter = format == TableFormat::tab_separated ? '\t' : ',';
    return std::make_unique<SeparatedWriter>(delimiter, std::move(columns), values);
}

} // namespace detect_layout
