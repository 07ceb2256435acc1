#include "parser/line_reader.hpp"
#include "search/search_walk.hpp"

namespace textio::parser {

void take_plain_records(const LineRecordReader& reader, PlainRecords& records) {
    const char16_t* const text_end = records.end();
    SearchWalk stops(reader.marks->line_end_starts(), records.start(), text_end);
    SampleWriter& sample = records.sample();
    while (records.at_record()) {
        const char16_t* const line_end = stops.next(records.start());
        sample.add_field(records.start(), line_end);
        if (!records.end_record(line_end)) {
            records.give_record_back();
            return;
        }
    }
}

} // namespace textio::parser
