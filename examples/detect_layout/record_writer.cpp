#include "record_writer.hpp"

#include "column_names.hpp"
#include "plain_copy.hpp"
#include "plain_numbers.hpp"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace detect_layout {

namespace {

/// Values with something between them, and quotes around those that would be misread without.
class SeparatedWriter : public RecordWriter {
public:
    SeparatedWriter(char delimiter, std::vector<WrittenColumn> columns)
        : delimiter_(delimiter), columns_(std::move(columns)) {}

    void write_names(ByteBuffer& out) const override {
        for (const WrittenColumn& column : columns_) {
            char* const at = out.room(most_bytes_of(column.name));
            out.fill_to(write_value(column.name, at));
            out.append(&column == &columns_.back() ? '\n' : delimiter_);
        }
    }

    void write(RecordCells& record, ByteBuffer& out) override {
        const auto values = record.cells();
        if (values.size() == 1 && values.front().empty()) {
            out.append("\"\"\n"); // or it would be a blank line
        } else if (const auto joined = record.joined(); !joined.empty()) {
            out.append(joined);
            out.append('\n');
        } else {
            write_each(record, out);
        }
    }

private:
    void write_each(const RecordCells& record, ByteBuffer& out) const {
        const auto values = record.cells();
        std::size_t size = 0;
        for (const std::string_view value : values) {
            size += most_bytes_of(value) + 1;
        }
        char* at = out.room(size);
        for (std::size_t i = 0; i < values.size(); ++i) {
            at = record.is_plain(i) ? std::copy(values[i].begin(), values[i].end(), at)
                                    : write_value(values[i], at);
            *at++ = delimiter_;
        }
        at[-1] = '\n';
        out.fill_to(at);
    }

    static std::size_t most_bytes_of(std::string_view value) { return 2 * value.size() + 2; }

    /// Writes `value`, with quotes where it needs them, and gives the end.
    char* write_value(std::string_view value, char* at) const {
        const auto is_blank = [](char byte) { return byte == ' ' || byte == '\t'; };
        const Seen seen = copy_checked(value, delimiter_, at);
        if (value.empty() ||
            ((seen & seen_special) == 0 && !is_blank(value.front()) && !is_blank(value.back()))) {
            return at + value.size();
        }
        *at++ = '"';
        at = (seen & seen_quote) != 0 ? copy_doubling(value, at)
                                      : std::copy(value.begin(), value.end(), at);
        *at++ = '"';
        return at;
    }

    static char* copy_doubling(std::string_view value, char* at) {
        for (const char byte : value) {
            *at++ = byte;
            *at = '"';
            at += byte == '"' ? 1 : 0;
        }
        return at;
    }

    const char delimiter_;
    const std::vector<WrittenColumn> columns_;
};

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
    explicit JsonWriter(std::vector<WrittenColumn> columns) : columns_(std::move(columns)) {
        for (const WrittenColumn& column : columns_) {
            add_key(column.name);
        }
    }

    void write_names(ByteBuffer& /*out*/) const override {}

    void write(RecordCells& record, ByteBuffer& out) override {
        const auto values = record.cells();
        while (keys_.size() < values.size()) {
            add_key(name_of_unnamed(keys_.size()));
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            out.append(i == 0 ? '{' : ',');
            out.append(keys_[i]);
            write_value(values[i], i < columns_.size() && columns_[i].is_number, out);
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
    std::vector<std::string> keys_; ///< escaped, with quotes and a colon
    std::string number_;
};

} // namespace

char delimiter_of(TableFormat format) noexcept {
    return format == TableFormat::tab_separated ? '\t' : ',';
}

std::unique_ptr<RecordWriter> make_writer(TableFormat format, std::vector<WrittenColumn> columns) {
    if (format == TableFormat::json_lines) {
        return std::make_unique<JsonWriter>(std::move(columns));
    }
    return std::make_unique<SeparatedWriter>(delimiter_of(format), std::move(columns));
}

} // namespace detect_layout
