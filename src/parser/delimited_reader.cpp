#include "parser/delimited_reader.hpp"

#include "parser/parser_exception.hpp"

#include <algorithm>
#include <utility>

namespace textio::parser {

DelimitedRecordReader::DelimitedRecordReader(const parser::options& reader_options,
                                             std::shared_ptr<const LineMarks> line_marks)
    : options(&reader_options), marks(LineMarks::of(reader_options, std::move(line_marks))),
      guarded_line_ends(marks->line_ends()), guarded_delimiters(reader_options.delimiters),
      blanks(reader_options.whitespace), quotes(std::u16string_view(&reader_options.quote, 1)),
      bounds(guarded_delimiters.first_units().units() + guarded_line_ends.first_units().units()),
      stops(bounds.set().units() + reader_options.quote + end_of_text),
      other_units(guarded_delimiters.first_units().units(), UnitSearch::Wanted::outside),
      has_plain_records(parser::has_plain_records(*this)) {}

std::size_t skip_delimiters(const DelimitedRecordReader& reader, const Field& text,
                            std::size_t position) {
    while (position < text.size) {
        const std::size_t length = reader.guarded_delimiters.match_at(text, position);
        if (length == 0) {
            break;
        }
        position += length;
    }
    return position;
}

std::size_t skip_to_content(const DelimitedRecordReader& reader, const Field& text,
                            std::size_t from) {
    const std::size_t content = reader.blanks.skip(text, from);
    return reader.options->leading_delimiters_rule == leading_delimiters::skip
               ? skip_delimiters(reader, text, content)
               : content;
}

void check_consecutive(const DelimitedRecordReader& reader, const Field& text,
                       std::size_t fields_before, std::size_t& next, bool& seen,
                       std::size_t& first) {
    if (reader.options->trailing_delimiters_rule != trailing_delimiters::drop) {
        if (reader.guarded_delimiters.match_at(text, next) != 0) {
            throw exception::consecutive_delimiters_error();
        }
        return;
    }
    const std::size_t moved = skip_delimiters(reader, text, next);
    if (moved != next) {
        next = moved;
        seen = true;
        first = std::min(first, fields_before + 1);
    }
}

void check_trailing(const DelimitedRecordReader& reader, Record& record, bool seen,
                    std::size_t first) {
    const std::uint8_t rule = reader.options->trailing_delimiters_rule;
    if (rule != trailing_delimiters::drop && rule != trailing_delimiters::error) {
        return;
    }
    std::vector<std::size_t>& spans = record.spans;
    while (!spans.empty() && spans[spans.size() - 2] == spans.back()) {
        if (rule == trailing_delimiters::error) {
            throw exception::trailing_delimiters_error();
        }
        spans.resize(spans.size() - 2);
    }
    if (seen && first < spans.size() / 2) {
        throw exception::consecutive_delimiters_error();
    }
}

namespace {

/// The position behind the quoted part that opens at `open`, or the end of the text.
std::size_t skip_quoted_part(const DelimitedRecordReader& reader, const Field& text,
                             std::size_t open) {
    std::size_t at = open;
    do {
        at = std::min(reader.quotes.next(text, at + 1) + 1, text.size);
    } while (at < text.size && text.data[at] == reader.options->quote);
    return at;
}

/// The position where the field behind the one at `start` starts. `field_size` becomes the length
/// of the field at `start`: up to the first delimiter or line ending outside a quoted part, with
/// blanks and quotes. A quoted part can only begin a field, behind blanks; a doubled quote does not
/// end it.
std::size_t scan_field(const DelimitedRecordReader& reader, const Field& text, std::size_t start,
                       std::size_t& field_size) {
    std::size_t at = reader.blanks.skip(text, start);
    if (at < text.size && text.data[at] == reader.options->quote) {
        at = skip_quoted_part(reader, text, at);
    }
    const Boundary boundary = find_boundary(reader.bounds, reader.guarded_delimiters,
                                            &reader.guarded_line_ends, text, at);
    field_size = boundary.at - start;
    return boundary.at + boundary.length;
}

/// Whether a record that has come to `position` ends there.
bool ends_record(const DelimitedRecordReader& reader, const Field& text, std::size_t position) {
    return text.unit_at(position) == end_of_text ||
           reader.guarded_line_ends.match_at(text, position) != 0;
}

/// The position behind the empty fields at `position`. Where they are dropped, they need not be
/// kept first: a line may have millions.
std::size_t skip_empty_fields(const DelimitedRecordReader& reader, const Field& text,
                              std::size_t position) {
    while (!ends_record(reader, text, position)) {
        std::size_t field_size = 0;
        const std::size_t next = scan_field(reader, text, position, field_size);
        if (field_size != 0) {
            break;
        }
        position = next;
    }
    return position;
}

/// Where the first field of the record at the start of `text` starts.
std::size_t skip_leading_delimiters(const DelimitedRecordReader& reader, const Field& text) {
    switch (reader.options->leading_delimiters_rule) {
    case leading_delimiters::skip:
        return skip_delimiters(reader, text, 0);
    case leading_delimiters::error:
        if (reader.guarded_delimiters.match_at(text, 0) != 0) {
            throw exception::leading_delimiters_error();
        }
        return 0;
    default:
        return 0;
    }
}

/// Cuts the record at the start of `text` into fields. Behind each field, `after_field` is given
/// the number of fields before it, and the position of the next field, which it may move.
template <class AfterField>
void split_record(const DelimitedRecordReader& reader, const Field& text, Record& record,
                  AfterField after_field) {
    std::size_t position = skip_leading_delimiters(reader, text);
    std::size_t last_end = position;
    std::size_t line_end = reader.guarded_line_ends.match_at(text, position);
    while (line_end == 0 && text.unit_at(position) != end_of_text) {
        std::size_t field_size = 0;
        std::size_t next = scan_field(reader, text, position, field_size);
        after_field(record.spans.size() / 2, next);
        last_end = position + field_size;
        record.spans.push_back(position);
        record.spans.push_back(last_end);
        position = next;
        line_end = reader.guarded_line_ends.match_at(text, position);
    }
    record.consumed = position + line_end;
    if (last_end != position) {
        record.spans.push_back(position); // an empty field behind the last delimiter
        record.spans.push_back(position);
    }
}

} // namespace

void read_record_separate(const DelimitedRecordReader& reader, const Field& text, Record& record) {
    const bool drops = reader.options->trailing_delimiters_rule == trailing_delimiters::drop;
    std::size_t empty_up_to = 0; // where the empty fields end that were looked along last
    split_record(reader, text, record, [&](std::size_t, std::size_t& next) {
        if (drops && next >= empty_up_to && reader.guarded_delimiters.match_at(text, next) != 0) {
            empty_up_to = skip_empty_fields(reader, text, next);
            next = ends_record(reader, text, empty_up_to) ? empty_up_to : next;
        }
    });
    check_trailing(reader, record, false, SIZE_MAX);
}

void read_record_merge(const DelimitedRecordReader& reader, const Field& text, Record& record) {
    split_record(reader, text, record, [&](std::size_t, std::size_t& next) {
        next = skip_delimiters(reader, text, next);
    });
    check_trailing(reader, record, false, SIZE_MAX);
}

void read_record_error(const DelimitedRecordReader& reader, const Field& text, Record& record) {
    bool seen = false;
    std::size_t first = SIZE_MAX;
    split_record(reader, text, record, [&](std::size_t fields_before, std::size_t& next) {
        check_consecutive(reader, text, fields_before, next, seen, first);
    });
    check_trailing(reader, record, seen, first);
}

bool read_record(const DelimitedRecordReader& reader, const Field& text, Record& record) {
    switch (reader.options->consecutive_delimiters_rule) {
    case consecutive_delimiters::merge:
        read_record_merge(reader, text, record);
        break;
    case consecutive_delimiters::error:
        read_record_error(reader, text, record);
        break;
    default:
        read_record_separate(reader, text, record);
    }
    return false;
}

} // namespace textio::parser
