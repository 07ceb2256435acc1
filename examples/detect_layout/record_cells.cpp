#include "record_cells.hpp"

#include "plain_copy.hpp"
#include "textio/reading.hpp"
#include "utf8_encoding.hpp"

namespace detect_layout {

namespace {

constexpr std::string_view replacement_in_utf8 = "\uFFFD";

/// Whether `delimiter` is what separates the fields, and so in none of them without quotes.
bool separates(const textio::parser::options& options, char16_t delimiter) {
    return options.reader_kind == textio::parser::record_reader::delimited &&
           options.delimiters.size() == 1 &&
           options.delimiters.front() == std::u16string(1, delimiter);
}

bool has(std::u16string_view text, char16_t unit) {
    return text.find(unit) != std::u16string_view::npos;
}

} // namespace

RecordCells::RecordCells(const textio::parser::options& options, char delimiter)
    : options_(options), delimiter_(delimiter),
      // What separates the fields is not looked for; `"` is looked for anyway.
      sought_(separates(options, static_cast<unsigned char>(delimiter)) ? '"' : delimiter),
      // A quote beyond ASCII is in none of the cells that are.
      quote_(options.quote < blanks_.size() ? static_cast<char>(options.quote) : '"'),
      has_ascii_quote_(options.quote < blanks_.size()),
      has_usual_blanks_(has(options.whitespace, u' ') && has(options.whitespace, u'\t')) {
    for (const char16_t unit : options.whitespace) {
        if (unit < blanks_.size()) {
            blanks_[unit] = true;
        }
    }
}

/// Copies the record in one go as if it were ASCII. Cells that are not, or have quotes inside, are
/// then taken one by one.
void RecordCells::take(std::span<const textio::Field> fields) {
    cells_.resize(fields.size());
    joined_ = {};
    has_replacement_ = false;
    const char16_t* const begin = fields.front().data;
    const char16_t* const end = fields.back().data + fields.back().size;
    const std::u16string_view text(begin, static_cast<std::size_t>(end - begin));
    bytes_.clear();
    char* const bytes = bytes_.room(text.size());
    const Seen seen = copy_narrowed(text, quote_, sought_, bytes);
    const bool has_quote = (seen & seen_quote) != 0 && has_ascii_quote_;
    const bool is_ascii = (seen & seen_beyond_ascii) == 0;
    const bool is_plain = (seen & seen_special) == 0 && !has_quote && has_usual_blanks_;
    plain_.assign(fields.size(), static_cast<std::uint8_t>(is_plain));
    if (is_plain && is_ascii) {
        take_plain(fields, bytes, text.size());
        return;
    }
    other_bytes_.clear();
    static_cast<void>(other_bytes_.room(most_bytes_per_unit * text.size())); // no value moves
    const char16_t* beyond_ascii = is_ascii ? end : find_beyond_ascii(text);
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const char16_t* const field_end = fields[i].data + fields[i].size;
        if (beyond_ascii < field_end) {
            cells_[i] = encoded(value_of(fields[i]));
            beyond_ascii =
                find_beyond_ascii({field_end, static_cast<std::size_t>(end - field_end)});
            continue;
        }
        cells_[i] = trimmed({bytes + (fields[i].data - begin), fields[i].size});
        if (has_quote) {
            cells_[i] = unquoted(fields[i], cells_[i]);
        }
    }
    if (!is_ascii) {
        has_replacement_ = other_bytes_.view().find(replacement_in_utf8) != std::string_view::npos;
    }
}

/// Takes the fields of a record of so many bytes, and joins the values if that is little more than
/// to leave them where they are.
void RecordCells::take_plain(std::span<const textio::Field> fields, char* bytes, std::size_t size) {
    bool is_joined = true;
    char* next = bytes;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        char* const first = bytes + (fields[i].data - fields.front().data);
        cells_[i] = trimmed({first, fields[i].size});
        is_joined = is_joined && first == next && cells_[i].size() == fields[i].size;
        if (is_joined && i > 0) {
            first[-1] = delimiter_;
        }
        next = first + fields[i].size + 1; // behind a delimiter of one unit
    }
    if (is_joined) {
        joined_ = {bytes, size};
    }
}

std::string_view RecordCells::trimmed(std::string_view text) const {
    const char* first = text.data();
    const char* last = first + text.size();
    while (first != last && blanks_[static_cast<unsigned char>(*first)]) {
        ++first;
    }
    while (first != last && blanks_[static_cast<unsigned char>(last[-1])]) {
        --last;
    }
    return {first, static_cast<std::size_t>(last - first)};
}

/// The value of a field that is `text`, all ASCII, without the blanks around it.
std::string_view RecordCells::unquoted(const textio::Field& field, std::string_view text) {
    if (text.empty() || text.front() != quote_) {
        return text;
    }
    if (text.size() == 1 || text.back() != quote_) {
        return encoded(textio::reading::cell_value(field, options_, value_));
    }
    const std::string_view inside = text.substr(1, text.size() - 2);
    if (inside.find(quote_) == std::string_view::npos) {
        return inside;
    }
    char* const value = other_bytes_.room(inside.size());
    char* to = value;
    for (std::size_t i = 0; i < inside.size(); ++i) {
        *to++ = inside[i];
        if (inside[i] == quote_ && (++i == inside.size() || inside[i] != quote_)) {
            return encoded(textio::reading::cell_value(field, options_, value_)); // not doubled
        }
    }
    other_bytes_.fill_to(to);
    return {value, static_cast<std::size_t>(to - value)};
}

std::string_view RecordCells::encoded(std::u16string_view value) {
    char* const begin = other_bytes_.room(most_bytes_per_unit * value.size());
    char* const end = encode_utf8(value, begin);
    other_bytes_.fill_to(end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

/// As `cell_value` gives it; it is asked for what is neither bare nor simply quoted.
std::u16string_view RecordCells::value_of(const textio::Field& field) {
    const std::u16string_view text = field.view();
    if (text.size() < 2 || is_blank(text.front()) || is_blank(text.back())) {
        return textio::reading::cell_value(field, options_, value_);
    }
    if (text.front() != options_.quote) {
        return text;
    }
    const std::u16string_view inside = text.substr(1, text.size() - 2);
    return text.back() == options_.quote && !has(inside, options_.quote)
               ? inside
               : textio::reading::cell_value(field, options_, value_);
}

bool RecordCells::is_blank(char16_t unit) const {
    return unit < blanks_.size() ? blanks_[unit] : has(options_.whitespace, unit);
}

} // namespace detect_layout
