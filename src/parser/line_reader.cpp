#include "parser/line_reader.hpp"

#include <utility>

namespace textio::parser {

LineRecordReader::LineRecordReader(const options& options,
                                   std::shared_ptr<const LineMarks> line_marks)
    : marks(LineMarks::of(options, std::move(line_marks))), guarded_line_ends(marks->line_ends()),
      blanks(options.whitespace), has_plain_records(parser::has_plain_records(*this)) {}

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

} // namespace textio::parser
