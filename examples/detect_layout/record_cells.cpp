#include "record_cells.hpp"

#include "textio/reading.hpp"

namespace detect_layout {

namespace {

constexpr std::string_view replacement_in_utf8 = "\uFFFD";

/// What separates the fields is in none of them without quotes.
Reserved reserved_units(const textio::parser::options& options, char delimiter) {
    const auto unit = static_cast<char16_t>(delimiter);
    const bool separates = options.reader_kind == textio::parser::record_reader::delimited &&
                           options.delimiters.size() == 1 &&
                           options.delimiters.front() == std::u16string(1, unit);
    return {u'"', options.quote == 0 ? u'"' : options.quote, separates ? u'"' : unit};
}

} // namespace

RecordCells::RecordCells(const textio::parser::options& options, char delimiter)
    : options_(options), reserved_(reserved_units(options, delimiter)) {
    for (const char16_t unit : options.whitespace) {
        if (unit < blanks_.size()) {
            blanks_[unit] = true;
        }
    }
    has_usual_blanks_ = blanks_[' '] && blanks_['\t'];
}

void RecordCells::take(std::span<const textio::Field> fields) {
    cells_.resize(fields.size());
    bytes_.clear();
    joined_ = {};
    has_replacement_ = false;
    is_plain_ = take_plain(fields);
    if (!is_plain_) {
        take_each(fields);
    }
}

/// Copies the record in one go. Gives false if it is not plain.
bool RecordCells::take_plain(std::span<const textio::Field> fields) {
    const char16_t* const begin = fields.front().data;
    const char16_t* const end = fields.back().data + fields.back().size;
    if (begin == nullptr || !has_usual_blanks_) {
        return false;
    }
    const std::u16string_view text(begin, static_cast<std::size_t>(end - begin));
    char* const bytes = bytes_.room(text.size());
    if (!copy_plain(text, reserved_, bytes)) {
        return false;
    }
    bool is_joined = true;
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
    }
    if (is_joined) {
        joined_ = {bytes, text.size()};
    }
    return true;
}

/// As `cell_value` gives it; it is asked for what is neither bare nor simply quoted.
std::u16string_view RecordCells::value_of(const textio::Field& field) {
    const std::u16string_view text = field.view();
    if (text.size() < 2 || is_blank(text.front()) || is_blank(text.back())) {
        return textio::reading::cell_value(field, options_, unquoted_);
    }
    if (text.front() != options_.quote) {
        return text;
    }
    const std::u16string_view inside = text.substr(1, text.size() - 2);
    return text.back() == options_.quote && inside.find(options_.quote) == std::u16string_view::npos
               ? inside
               : textio::reading::cell_value(field, options_, unquoted_);
}

bool RecordCells::is_blank(char16_t unit) const {
    return unit < blanks_.size() ? blanks_[unit]
                                 : options_.whitespace.find(unit) != std::u16string::npos;
}

void RecordCells::take_each(std::span<const textio::Field> fields) {
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

} // namespace detect_layout
