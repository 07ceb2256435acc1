#include "parser/line_reader.hpp"

#include "parser/search_walk.hpp"

namespace textio::parser {

LineRecordReader::LineRecordReader(const options& options)
    : scanner(options.line_endings, {}), whitespace(&options.whitespace), blank_units(*whitespace),
      guarded_line_ends(scanner.ends),
      has_plain_records(
          are_disjoint({blank_units.set().units(), guarded_line_ends.first_units().units(),
                        std::u16string_view(&end_of_text, 1)})) {}

void read_line(const LineRecordReader& reader, const Field& text, Record& record) {
    const Boundary line_end = reader.scanner.find(text, 0);
    record.consumed = line_end.at + line_end.length;
    if (line_end.at > 0) {
        record.spans.push_back(0);
        record.spans.push_back(line_end.at);
    }
}

void take_plain_records(const LineRecordReader& reader, PlainRecords& records) {
    const char16_t* const text_end = records.end();
    SearchWalk stops(reader.scanner.search, records.start(), text_end);
    while (records.at_record()) {
        const char16_t* const line_end = stops.next(records.start());
        records.add_field(records.start(), line_end);
        if (!records.end_record(line_end)) {
            records.give_record_back();
            return;
        }
    }
}

bool read_record(const LineRecordReader& reader, const Field& text, Record& record) {
    read_line(reader, text, record);
    return false;
}

std::size_t skip_to_content(const LineRecordReader& reader, const Field& text, std::size_t from) {
    return reader.blank_units.skip(text, from);
}

ReadCounts read_records(const options& options, const LineRecordReader& reader,
                        std::size_t max_rows, std::size_t max_lines, Field& text,
                        output::DetectionOutputBuilder& builder) {
    return RecordLoop(options, reader, {max_rows, max_lines}, text, builder).run();
}

} // namespace textio::parser
