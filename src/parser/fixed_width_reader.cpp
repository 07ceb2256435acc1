#include "parser/fixed_width_reader.hpp"

#include "parser/parser_exception.hpp"

#include <algorithm>
#include <utility>

namespace textio::parser {

FixedWidthRecordReader::FixedWidthRecordReader(const parser::options& reader_options,
                                               std::shared_ptr<const LineMarks> line_marks)
    : options(&reader_options), widths(reader_options.field_widths),
      marks(LineMarks::of(reader_options, std::move(line_marks))),
      guarded_line_ends(marks->line_ends()), blanks(reader_options.whitespace),
      plain_stops(guarded_line_ends.first_units().units() + end_of_text),
      field_limit(widths.size()), has_plain_records(parser::has_plain_records(*this)) {}

namespace {

void add_span(Record& record, std::size_t start, std::size_t end) {
    record.spans.push_back(start);
    record.spans.push_back(end);
}

/// Where a field that starts at `start` and may reach up to `end` ends: behind its last unit that
/// is not `end_of_text`.
std::size_t end_within_reach(const Field& text, std::size_t start, std::size_t end) {
    while (end > start && text.data[end - 1] == end_of_text) {
        --end;
    }
    return end;
}

/// Whether a field that may reach up to `end` takes the unit at `at`: whether there is a unit other
/// than `end_of_text` from there on. If there is none, no record follows, so a long run of
/// `end_of_text` is not looked at twice.
bool is_within_reach(const Field& text, std::size_t at, std::size_t end) {
    while (at < end && text.data[at] == end_of_text) {
        ++at;
    }
    return at < end;
}

/// Walks through the line endings of one record, from left to right. Fields are shorter than lines,
/// so where the next line ending may start is found once and not again for every field.
class LineEndingWalk {
public:
    LineEndingWalk(const FixedWidthRecordReader& reader, const Field& text)
        : reader_(reader), text_(text), stops_(reader.marks->line_end_starts()),
          stop_(stops_.next(text, 0)) {}

    /// The first line ending that starts from `begin` on and before `end`. Neither `begin` nor
    /// `end` may be smaller than in an earlier call.
    Boundary first_within(std::size_t begin, std::size_t end) {
        if (stop_ < begin) {
            stop_ = stops_.next(text_, begin);
        }
        while (stop_ < end) {
            if (const std::size_t length = reader_.guarded_line_ends.match_at(text_, stop_);
                length != 0) {
                return {stop_, length};
            }
            stop_ = stops_.next(text_, stop_ + 1);
        }
        return {text_.size, 0};
    }

    /// The length of the line ending that starts at `position`, 0 if none does.
    [[nodiscard]] std::size_t length_at(std::size_t position) const {
        return stop_ <= position ? reader_.guarded_line_ends.match_at(text_, position) : 0;
    }

private:
    const FixedWidthRecordReader& reader_;
    const Field& text_;
    const UnitSearch& stops_;
    std::size_t stop_; ///< the next unit with which a line ending may start
};

/// Ends the record, or lets the field run on, where a line ends inside the field at `start`. Gives
/// whether the record has ended.
bool end_at_partial_field(const FixedWidthRecordReader& reader, Record& record, std::size_t start,
                          Boundary line_ending, std::uint8_t& record_mark) {
    switch (reader.options->partial_field_rule) {
    case partial_field::read_on:
        return false;
    case partial_field::error: {
        exception::partial_field_error error;
        error.field = record.spans.size() / 2;
        error.detail = u"\\n";
        throw error;
    }
    case partial_field::drop_mark_2:
        record_mark = 2;
        break;
    case partial_field::drop_mark_3:
        record_mark = 3;
        break;
    case partial_field::drop_mark_1:
        record_mark = 1;
        break;
    default:
        add_span(record, start, line_ending.at);
    }
    record.consumed = line_ending.at + line_ending.length;
    return true;
}

/// Takes the rest of a line that goes on behind its last field, at `end`.
void take_rest_of_line(const FixedWidthRecordReader& reader, const Field& text, Record& record,
                       LineEndingWalk& line_endings, std::size_t end) {
    const Boundary line_ending = line_endings.first_within(end, text.size);
    record.consumed = line_ending.at + line_ending.length;
    const Field line(text.data, line_ending.at);
    if (reader.blanks.skip(line, end) < line.size) {
        add_span(record, end, line.size);
    }
}

} // namespace

void read_fixed_record(const FixedWidthRecordReader& reader, const Field& text, Record& record,
                       std::uint8_t& record_mark) {
    record_mark = 0;
    LineEndingWalk line_endings(reader, text);
    std::size_t position = 0;
    for (const std::size_t width : reader.widths) {
        const std::size_t farthest = position + std::min(width, text.size - position);
        const Boundary inside = line_endings.first_within(position, farthest);
        if (inside.length != 0 && is_within_reach(text, inside.at, farthest) &&
            end_at_partial_field(reader, record, position, inside, record_mark)) {
            return;
        }
        const std::size_t end = end_within_reach(text, position, farthest);
        add_span(record, position, end);
        position = end;
        const std::size_t line_end = line_endings.length_at(end);
        if (line_end != 0 || text.unit_at(end) == end_of_text) {
            record.consumed = end + line_end;
            return;
        }
    }
    take_rest_of_line(reader, text, record, line_endings, position);
}

bool read_record(const FixedWidthRecordReader& reader, const Field& text, Record& record) {
    std::uint8_t record_mark = 0;
    read_fixed_record(reader, text, record, record_mark);
    return record_mark != 0;
}

} // namespace textio::parser
