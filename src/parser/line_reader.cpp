#include "parser/line_reader.hpp"

namespace textio::parser {

LineRecordReader::LineRecordReader(const options& options)
    : scanner(options.line_endings, {}), whitespace(&options.whitespace), blank_units(*whitespace),
      guarded_line_ends(scanner.ends), has_plain_records(parser::has_plain_records(*this)) {}

void read_line(const LineRecordReader& reader, const Field& text, Record& record) {
    const Boundary line_end = reader.scanner.find(text, 0);
    record.consumed = line_end.at + line_end.length;
    if (line_end.at > 0) {
        record.spans.push_back(0);
        record.spans.push_back(line_end.at);
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
