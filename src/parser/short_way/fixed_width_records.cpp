#include "parser/fixed_width_reader.hpp"
#include "search/search_walk.hpp"

namespace textio::parser {

/// A plain line holds no end of text and is not blank, so each of its fields reaches as far as its
/// width or the line does. What stands behind the last width is no field.
void take_plain_records(const FixedWidthRecordReader& reader, PlainRecords& records) {
    const char16_t* const text_end = records.end();
    SearchWalk stops(reader.plain_stops, records.start(), text_end);
    SampleWriter& sample = records.sample();
    while (records.at_record()) {
        const char16_t* const line_end = stops.next(records.start());
        const char16_t* position = records.start();
        auto width = reader.widths.begin();
        for (;
             width != reader.widths.end() && *width < static_cast<std::size_t>(line_end - position);
             ++width) {
            sample.add_field(position, position + *width);
            position += *width;
        }
        if (width != reader.widths.end()) {
            sample.add_field(position, line_end);
        }
        if (!records.end_record(line_end)) {
            records.give_record_back();
            return;
        }
    }
}

} // namespace textio::parser
