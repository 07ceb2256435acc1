// The short way through delimited text: the loops in which detection spends most of its time. They
// walk from stop to stop, that is from one delimiter, line ending, quote or end of text to the
// next, and look at nothing in between. A field is added where its last stop is found.
#include "parser/delimited_reader.hpp"
#include "parser/short_way/plain_fields.hpp"

#include <algorithm>
#include <cstddef>

namespace textio::parser {

namespace {

/// Takes the fields that end at the usual delimiter, up to a block's end behind `checkpoint`. The
/// first begins at `begin` and has its first stop at `end`, and so does then the field that was not
/// taken.
template <class Walk>
void take_usual_fields(PlainRecords& records, PlainFields<Walk>& fields, RunEnds& runs,
                       const char16_t* checkpoint, const char16_t*& begin, const char16_t*& end) {
    while (end < checkpoint && fields.is_usual_delimiter(*end)) {
        records.sample().add_field(begin, end);
        begin = end + 1;
        if (fields.is_at_run()) [[unlikely]] {
            const char16_t* const run_end = std::min(runs.end_of_run(begin), checkpoint);
            records.sample().add_empty_fields(begin, run_end);
            begin = run_end;
            end = fields.next_stop(begin);
            continue;
        }
        while (fields.has_stop_at_hand()) {
            end = fields.stop_at_hand();
            if (!fields.is_usual_delimiter(*end)) {
                return;
            }
            records.sample().add_field(begin, end);
            begin = end + 1;
        }
        end = fields.next_stop();
    }
}

/// Whether nothing but empty fields that are dropped, perhaps millions, stands from `begin` up to
/// the end of the record.
template <class Walk>
bool drops_rest_of_line(const DelimitedRecordReader& reader, const PlainFields<Walk>& fields,
                        RunEnds& runs, const char16_t* begin) {
    return reader.options->trailing_delimiters_rule == trailing_delimiters::drop &&
           fields.may_end_line(runs.end_of_run(begin));
}

/// Takes the record at which `records` stands, where every delimiter ends a field. Gives whether it
/// was plain.
template <class Walk>
bool take_separate_record(const DelimitedRecordReader& reader, PlainRecords& records,
                          PlainFields<Walk>& fields, RunEnds& runs) {
    const char16_t* begin = records.start();
    const char16_t* checkpoint = records.sample().checkpoint(begin);
    const char16_t* end = fields.next_stop(begin);
    for (;;) {
        take_usual_fields(records, fields, runs, checkpoint, begin, end);
        end = fields.end_of_field(begin, end);
        if (end == nullptr || !fields.is_delimiter_at(end)) {
            break;
        }
        if (end >= checkpoint) {
            if (begin == end && drops_rest_of_line(reader, fields, runs, begin)) {
                return false;
            }
            checkpoint = records.sample().make_room_within_record(end);
        }
        records.sample().add_field(begin, end);
        begin = end + 1;
        end = fields.next_stop();
    }
    if (end == nullptr ||
        (begin == end && reader.options->trailing_delimiters_rule != trailing_delimiters::keep)) {
        return false;
    }
    records.sample().add_field(begin, end);
    return records.end_record(end);
}

/// Takes the fields of a record where a run of delimiters ends a field. A stop is the first unit of
/// a run then, the first behind it, or what else may end a field. The first field begins at `begin`
/// and has its first stop at `stop`. Gives whether the record was plain.
inline bool take_merged_fields(const DelimitedRecordReader& reader, PlainRecords& records,
                               PlainFields<RunWalk>& fields, const char16_t* begin,
                               const char16_t* stop) {
    for (;;) {
        if (!fields.is_delimiter_at(stop)) {
            stop = fields.end_of_field(begin, stop);
            if (stop == nullptr) {
                return false;
            }
            if (!fields.is_delimiter_at(stop)) {
                records.sample().add_field(begin, stop);
                return records.end_record(stop);
            }
        }
        records.sample().add_field(begin, stop);
        begin = fields.next_stop();
        if (fields.may_end_line(begin)) {
            return reader.options->trailing_delimiters_rule == trailing_delimiters::drop &&
                   records.end_record(begin);
        }
        stop = fields.is_quote_or_end(*begin) ? begin : fields.next_stop();
    }
}

/// Takes the record at which `records` stands, where a run of delimiters ends a field. Gives
/// whether it was plain.
inline bool take_merged_record(const DelimitedRecordReader& reader, PlainRecords& records,
                               PlainFields<RunWalk>& fields) {
    const char16_t* begin = records.start();
    const char16_t* stop = fields.next_stop(begin);
    if (fields.is_delimiter(*begin) &&
        reader.options->leading_delimiters_rule == leading_delimiters::skip) {
        begin = fields.next_stop();
        stop = fields.next_stop(begin);
    }
    return !records.is_unplain_start(begin) && !fields.is_delimiter(*begin) &&
           take_merged_fields(reader, records, fields, begin, stop);
}

/// Takes merged records until one is not plain. The walks here and below are local, so that what
/// they keep can stay in registers.
void take_merged_records(const DelimitedRecordReader& reader, PlainRecords& records) {
    const RunWalk edges({reader.stops, reader.other_units}, records.start(), records.end());
    PlainFields fields(reader, records, edges);
    while (records.at_record()) {
        if (!take_merged_record(reader, records, fields)) {
            records.give_record_back();
            return;
        }
    }
}

/// Takes separate records until one is not plain or, behind the first `least`, one had a quoted
/// part. Gives whether all were plain.
bool take_records_to_quotes(const DelimitedRecordReader& reader, PlainRecords& records,
                            std::size_t least) {
    const SearchWalk stops(reader.stops, records.start(), records.end());
    RunEnds runs(SearchWalk(reader.other_units, records.start(), records.end()));
    PlainFields fields(reader, records, stops);
    for (std::size_t taken = 0; taken < least || fields.quoted_parts() == 0; ++taken) {
        if (!records.at_record()) {
            break;
        }
        if (!take_separate_record(reader, records, fields, runs)) {
            records.give_record_back();
            return false;
        }
    }
    return true;
}

/// Takes separate records until one is not plain, has a quote that is not regular, or there has
/// been no quote for long. Gives whether the last is the reason.
bool take_records_with_quotes(const DelimitedRecordReader& reader, PlainRecords& records) {
    constexpr std::size_t many_blocks = 32;
    const UnquotedWalk stops({reader.stops, reader.quotes}, records.start(), records.end());
    RunEnds runs(SearchWalk(reader.other_units, records.start(), records.end()));
    PlainFields fields(reader, records, stops);
    while (records.at_record() && fields.walk().source().blocks_without_quotes() < many_blocks) {
        if (!take_separate_record(reader, records, fields, runs)) {
            records.give_record_back();
            return false;
        }
    }
    return true;
}

/// Takes separate records until one is not plain. To look for quotes apart pays where there are
/// some, and where they are regular; behind one that is not, it is left alone for a while.
void take_separate_records(const DelimitedRecordReader& reader, PlainRecords& records) {
    constexpr std::size_t a_while = 16; // records
    std::size_t least = 1;
    while (records.at_record() && take_records_to_quotes(reader, records, least)) {
        least = take_records_with_quotes(reader, records) ? 1 : a_while;
    }
}

} // namespace

void take_plain_records(const DelimitedRecordReader& reader, PlainRecords& records) {
    const bool merges =
        reader.options->consecutive_delimiters_rule == consecutive_delimiters::merge;
    (merges ? take_merged_records : take_separate_records)(reader, records);
}

} // namespace textio::parser
