#include "separated_writer.hpp"

#include "plain_copy.hpp"
#include "utf8_encoding.hpp"

#include <algorithm>
#include <utility>

namespace detect_layout {

namespace {

// Traits of code units.
constexpr std::uint8_t blank = 1;          ///< is passed around values
constexpr std::uint8_t odd_in_front = 2;   ///< a cell that begins with it needs a closer look
constexpr std::uint8_t odd_at_the_end = 4; ///< one that ends with it does
constexpr std::size_t beyond_ascii = 0x80;
constexpr Seen seen_to_quote = seen_quote | seen_special;

/// The delimiter of ASCII that alone separates the fields; 0 if there is none.
char separator_of(const textio::parser::options& options) {
    const bool is_alone = options.reader_kind == textio::parser::record_reader::delimited &&
                          options.delimiters.size() == 1 &&
                          options.delimiters.front().size() == 1 &&
                          options.delimiters.front().front() < beyond_ascii;
    return is_alone ? static_cast<char>(options.delimiters.front().front()) : '\0';
}

/// Writes what was copied to `to`, and of which that was seen, so that it is right in UTF-8.
char* finish_copy(std::u16string_view text, Seen seen, char* to) {
    return (seen & seen_beyond_ascii) == 0 ? to + text.size() : encode_utf8(text, to);
}

/// Many in one go: each is written, changed or not.
void replace(char* at, const char* end, char old, char with) {
    for (; at != end; ++at) {
        *at = *at == old ? with : *at;
    }
}

/// Whether each quote in `text` has another one behind it.
bool are_doubled(std::u16string_view text, char16_t quote) {
    for (std::size_t at = text.find(quote); at != std::u16string_view::npos;
         at = text.find(quote, at + 2)) {
        if (at + 1 == text.size() || text[at + 1] != quote) {
            return false;
        }
    }
    return true;
}

} // namespace

SeparatedWriter::SeparatedWriter(char delimiter, std::vector<WrittenColumn> columns,
                                 ColumnValues& values)
    : delimiter_(delimiter), columns_(std::move(columns)), values_(values),
      quote_(values.options().quote),
      narrow_quote_(quote_ < beyond_ascii ? static_cast<char>(quote_) : '"'),
      separator_(separator_of(values.options())),
      sought_(separator_ == delimiter ? '"' : delimiter) {
    set(values.options().whitespace, blank | odd_in_front | odd_at_the_end);
    set(u" \t", odd_in_front | odd_at_the_end);
    set({&quote_, 1}, odd_in_front);
    for (const std::u16string& text : values.missing()) {
        set(text.substr(0, 1), odd_in_front);
    }
}

void SeparatedWriter::set(std::u16string_view units, std::uint8_t trait) {
    for (const char16_t unit : units) {
        // A blank beyond ASCII is passed only where the value is taken out of the cell.
        traits_[std::min<std::size_t>(unit, beyond_ascii)] |=
            unit < beyond_ascii ? trait : trait & ~blank;
    }
}

void SeparatedWriter::write_names(ByteBuffer& out) const {
    for (const WrittenColumn& column : columns_) {
        write_value(column.name, out);
    }
    out.replace_last('\n');
}

void SeparatedWriter::write(Cells cells, ByteBuffer& out) {
    const std::size_t before = out.size();
    std::size_t next = 0;
    for (const ColumnValues::Column& column : values_.changing()) {
        if (column.index >= cells.size()) {
            break;
        }
        write_run(cells.subspan(next, column.index - next), next, out);
        const textio::Field& cell = cells[column.index];
        if (column.order) {
            write_value(values_.value(column.index, cell), out);
        } else {
            write_number(cell, column.index, out);
        }
        next = column.index + 1;
    }
    write_run(cells.subspan(next), next, out);
    if (out.size() == before + 1) {
        out.replace_last('"'); // or it would be a blank line
        out.append("\"\n");
    } else {
        out.replace_last('\n');
    }
}

/// Writes cells of which the first one is in the column `first`.
void SeparatedWriter::write_run(Cells cells, std::size_t first, ByteBuffer& out) {
    if (cells.empty() || copy_run(cells, out)) {
        return;
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        write_cell(cells[i], first + i, out);
    }
}

/// Copies cells that stand side by side, if none of them needs a closer look.
bool SeparatedWriter::copy_run(Cells cells, ByteBuffer& out) const {
    if (!stand_side_by_side(cells)) {
        return false;
    }
    const char16_t* const begin = cells.front().data;
    const char16_t* const end = cells.back().data + cells.back().size;
    const std::u16string_view text(begin, static_cast<std::size_t>(end - begin));
    char* const to = out.room(most_bytes_per_unit * text.size() + 1);
    const Seen seen = copy_narrowed(text, narrow_quote_, sought_, to);
    if ((seen & seen_to_quote) != 0) {
        return false;
    }
    char* const written = finish_copy(text, seen, to);
    if (separator_ != delimiter_ && cells.size() > 1) {
        replace(to, written, separator_, delimiter_);
    }
    *written = delimiter_;
    out.fill_to(written + 1);
    return true;
}

void SeparatedWriter::write_cell(const textio::Field& cell, std::size_t column, ByteBuffer& out) {
    const Bare found = bare(cell);
    char* to = out.room(most_bytes_per_unit * found.text.size() + 3);
    if (!found.value.empty()) {
        to = is_ordinary(found.value) ? copy_cell(found, to) : nullptr;
    }
    if (to == nullptr) {
        write_value(values_.value(column, cell), out);
    } else {
        *to++ = delimiter_;
        out.fill_to(to);
    }
}

/// Copies a cell with an ordinary value, in quotes if it needs them; gives the end, or null if the
/// value has to be taken out of it.
char* SeparatedWriter::copy_cell(const Bare& cell, char* to) const {
    const Seen seen = copy_narrowed(cell.value, narrow_quote_, delimiter_, to);
    if ((seen & seen_to_quote) == 0) {
        return finish_copy(cell.value, seen, to);
    }
    if (quote_ != u'"' || (seen & seen_beyond_ascii) != 0) {
        return nullptr; // it may be that nothing special is there
    }
    if ((seen & seen_quote) != 0 && !(cell.is_quoted() && are_doubled(cell.value, quote_))) {
        return nullptr;
    }
    *to++ = '"';
    to = encode_utf8(cell.value, to);
    *to++ = '"';
    return to;
}

void SeparatedWriter::write_number(const textio::Field& cell, std::size_t column, ByteBuffer& out) {
    if (!copy_number(cell.view(), out) && !copy_number(bare(cell).value, out)) {
        write_cell(cell, column, out);
    }
}

/// Copies a number without anything around it; gives whether `text` is one.
bool SeparatedWriter::copy_number(std::u16string_view text, ByteBuffer& out) const {
    if (text.empty() || !is_ordinary(text)) {
        return false;
    }
    char* const to = out.room(text.size() + 1);
    char* const end = values_.numbers().write(text, to);
    if (end == nullptr) {
        return false;
    }
    *end = delimiter_;
    out.fill_to(end + 1);
    return true;
}

void SeparatedWriter::write_value(std::string_view value, ByteBuffer& out) const {
    const auto is_blank = [](char byte) { return byte == ' ' || byte == '\t'; };
    const auto is_special = [this](char byte) {
        return byte == '"' || byte == '\n' || byte == '\r' || byte == delimiter_;
    };
    if (value.empty() || (!is_blank(value.front()) && !is_blank(value.back()) &&
                          std::none_of(value.begin(), value.end(), is_special))) {
        out.append(value);
    } else {
        char* to = out.room(2 * value.size() + 2);
        *to++ = '"';
        for (const char byte : value) {
            *to++ = byte;
            *to = '"';
            to += byte == '"' ? 1 : 0;
        }
        *to++ = '"';
        out.fill_to(to);
    }
    out.append(delimiter_);
}

std::uint8_t SeparatedWriter::traits_of(char16_t unit) const noexcept {
    return traits_[std::min<std::size_t>(unit, beyond_ascii)];
}

/// Whether a bare cell that is `text`, which is not empty, has this value.
bool SeparatedWriter::is_ordinary(std::u16string_view text) const noexcept {
    return (traits_of(text.front()) & odd_in_front) == 0 &&
           (traits_of(text.back()) & odd_at_the_end) == 0;
}

/// Whether ordinary cells stand there, with one unit between each two.
bool SeparatedWriter::stand_side_by_side(Cells cells) const noexcept {
    const char16_t* next = cells.front().data;
    unsigned odd = 0;
    for (const textio::Field& cell : cells) {
        odd |= cell.data == next ? 0U : 1U;
        next = cell.data + cell.size + 1;
        if (cell.size != 0) {
            odd |=
                (traits_of(cell.data[0]) & odd_in_front) | (traits_of(next[-2]) & odd_at_the_end);
        }
    }
    return odd == 0 && (separator_ != '\0' || cells.size() == 1);
}

SeparatedWriter::Bare SeparatedWriter::bare(const textio::Field& cell) const noexcept {
    std::u16string_view text = cell.view();
    while (!text.empty() && (traits_of(text.front()) & blank) != 0) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (traits_of(text.back()) & blank) != 0) {
        text.remove_suffix(1);
    }
    const bool is_quoted = quote_ < beyond_ascii && text.size() >= 2 && text.front() == quote_ &&
                           text.back() == quote_;
    return {text, is_quoted ? text.substr(1, text.size() - 2) : text};
}

} // namespace detect_layout
