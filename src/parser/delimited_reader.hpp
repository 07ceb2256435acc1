/// \file
/// Reads text whose fields are separated by delimiters: delimited and space-aligned text alike.
#pragma once

#include "parser/line_marks.hpp"
#include "parser/record_loop.hpp"
#include "parser/short_way/plain_records.hpp"
#include "search/guarded_delim.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <memory>

namespace textio::parser {

/// Built for one read, from options that outlive it and stay as they are meanwhile. Marks that
/// another read of the text has made can be handed over.
struct DelimitedRecordReader {
    static constexpr bool comment_keeps_columns = false;
    static constexpr bool blank_lines_are_empty = true;
    static constexpr std::size_t field_limit = SIZE_MAX;

    explicit DelimitedRecordReader(const options& options,
                                   std::shared_ptr<const LineMarks> line_marks = nullptr);

    const parser::options* options;
    std::shared_ptr<const LineMarks> marks;
    const GuardedDelim& guarded_line_ends; ///< that of the marks
    GuardedDelim guarded_delimiters;
    UnitSearch blanks; ///< finds what may stand in front of an opening quote
    UnitSearch quotes; ///< finds the quote
    UnitSearch bounds; ///< finds the first units of delimiters and line endings

    // For the short way.
    UnitSearch stops;       ///< finds all that can end a field or open a quoted part
    UnitSearch other_units; ///< finds what begins no delimiter
    bool has_plain_records;
};

/// The position behind the run of delimiters at `position`, which may be none. Never moves from a
/// position at or past the end of the text.
std::size_t skip_delimiters(const DelimitedRecordReader& reader, const Field& text,
                            std::size_t position);

/// Where content starts on the line at `from`: behind blanks and, where they are skipped, leading
/// delimiters.
std::size_t skip_to_content(const DelimitedRecordReader& reader, const Field& text,
                            std::size_t from);

/// Each reads the record at the start of `text`; a run of delimiters separates at each, counts as
/// one, or is an error.
void read_record_separate(const DelimitedRecordReader& reader, const Field& text, Record& record);
void read_record_merge(const DelimitedRecordReader& reader, const Field& text, Record& record);
void read_record_error(const DelimitedRecordReader& reader, const Field& text, Record& record);

/// Reads plain records until one is not.
void take_plain_records(const DelimitedRecordReader& reader, PlainRecords& records);

/// Reads the record at the start of `text` by the one of these that the options name. No blank
/// record counts as a row.
bool read_record(const DelimitedRecordReader& reader, const Field& text, Record& record);

/// Judges the delimiters at `next`, behind the field of which `fields_before` precede. Where
/// trailing delimiters are dropped, `next` moves past them and the error is put off: `seen` is set,
/// and `first` becomes the least number of fields that a record with such an error must keep.
void check_consecutive(const DelimitedRecordReader& reader, const Field& text,
                       std::size_t fields_before, std::size_t& next, bool& seen,
                       std::size_t& first);

/// Judges or removes empty fields at the end of `record`, and raises an error that was put off if
/// the delimiters in a row did not stand at the end.
void check_trailing(const DelimitedRecordReader& reader, Record& record, bool seen,
                    std::size_t first);

} // namespace textio::parser
