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

} // namespace

RecordCells::RecordCells(const textio::parser::options& options, char delimiter)
    : options_(options), delimiter_(static_cast<char16_t>(delimiter)) {
    if (separates(options, delimiter_)) {
        delimiter_ = u'"'; // which is looked for anyway
    }
    for (const char16_t unit : options.whitespace) {
        if (unit < blanks_.size()) {
            blanks_[unit] = true;
        }
    }
    has_usual_blanks_ = blanks_[' '] && blanks_['\t'];
}

void RecordCells::take(std::span<const textio::Field> fields) {
    cells_.resize(fields.size());
    joined_ = {};
    has_replacement_ = false;
    if (!take_narrowed(fields)) {
        is_plain_ = false;
        take_each(fields);
    }
}

/// Copies the record in one go. Gives false if it is not ASCII.
bool RecordCells::take_narrowed(std::span<const textio::Field> fields) {
    const char16_t* const begin = fields.front().data;
    const char16_t* const end = fields.back().data + fields.back().size;
    if (begin == nullptr) {
        return false;
    }
    const std::u16string_view text(begin, static_cast<std::size_t>(end - begin));
    bytes_.clear();
    char* const bytes = bytes_.room(text.size());
    const Seen seen = copy_narrowed(text, options_.quote, delimiter_, bytes);
    if (seen.beyond_ascii) {
        return false;
    }
    is_plain_ = !seen.quote && !seen.special && has_usual_blanks_;
    if (seen.quote) {
        unquoted_bytes_.clear();
        static_cast<void>(unquoted_bytes_.room(text.size())); // so that no value moves
    }
    bool is_joined = is_plain_;
    const char* next = bytes;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const char* first = bytes + (fields[i].data - begin);
        const char* last = first + fields[i].size;
        is_joined = is_joined && first == next;
        next = last + 1; // behind a delimiter of one unit
        while (first != last && blanks_[static_cast<unsigned char>(*first)]) {
            ++first;
        }
        while (first != last && blanks_[static_cast<unsigned char>(last[-1])]) {
            --last;
        }
        cells_[i] = {first, static_cast<std::size_t>(last - first)};
        is_joined = is_joined && cells_[i].size() == fields[i].size;
        if (seen.quote) {
            cells_[i] = unquoted(fields[i], cells_[i]);
        }
    }
    if (is_joined) {
        joined_ = {bytes, text.size()};
    }
    return true;
}

/// The value of a field that is `value` with quotes.
std::string_view RecordCells::unquoted(const textio::Field& field, std::string_view value) {
    const char quote = static_cast<char>(options_.quote);
    if (value.empty() || value.front() != quote) {
        return value;
    }
    if (value.size() > 1 && value.back() == quote && value.find(quote, 1) == value.size() - 1) {
        return value.substr(1, value.size() - 2);
    }
    const auto units = textio::reading::cell_value(field, options_, value_);
    char* const at = unquoted_bytes_.room(units.size());
    unquoted_bytes_.fill_to(encode_utf8(units, at));
    return {at, units.size()};
}

void RecordCells::take_each(std::span<const textio::Field> fields) {
    bytes_.clear();
    ends_.clear();
    for (const textio::Field& field : fields) {
        const std::u16string_view value = value_of(field);
        char* const at = bytes_.room(most_bytes_per_unit * value.size());
        bytes_.fill_to(encode_utf8(value, at));
        ends_.push_back(bytes_.size());
    }
    std::size_t begin = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        cells_[i] = bytes_.view().substr(begin, ends_[i] - begin);
        begin = ends_[i];
    }
    has_replacement_ = bytes_.view().find(replacement_in_utf8) != std::string_view::npos;
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
    return text.back() == options_.quote && inside.find(options_.quote) == std::u16string_view::npos
               ? inside
               : textio::reading::cell_value(field, options_, value_);
}

bool RecordCells::is_blank(char16_t unit) const {
    return unit < blanks_.size() ? blanks_[unit]
                                 : options_.whitespace.find(unit) != std::u16string::npos;
}

} // namespace detect_layout
