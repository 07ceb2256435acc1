#include "parser/line_reader.hpp"

#include <utility>

namespace textio::parser {

LineRecordReader::LineRecordReader(const options& options,
                                   std::shared_ptr<const LineMarks> line_marks)
    : marks(LineMarks::of(options, std::move(line_marks))), guarded_line_ends(marks->line_ends()),
      blank_units(options.whitespace), has_plain_records(parser::has_plain_records(*this)) {}

void read_line(const LineRecordReader& reader, const Field& text, Record& record) {
    const Boundary line_end = reader.marks->find_line_end(text, 0);
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
