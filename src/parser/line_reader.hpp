/// \file
/// Reads each line as one field.
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
struct LineRecordReader {
    static constexpr bool comment_keeps_columns = false;
    static constexpr bool blank_lines_are_empty = true;
    static constexpr std::size_t field_limit = SIZE_MAX;

    explicit LineRecordReader(const options& options,
                              std::shared_ptr<const LineMarks> line_marks = nullptr);

    std::shared_ptr<const LineMarks> marks;
    const GuardedDelim& guarded_line_ends; ///< that of the marks
    UnitSearch blanks;                     ///< finds the whitespace of the options
    bool has_plain_records; ///< line endings are neither blanks nor the end of the text
};

/// Reads the line at the start of `text`, blanks at its ends included. An empty one has no span.
void read_line(const LineRecordReader& reader, const Field& text, Record& record);

/// Reads plain lines until one is not.
void take_plain_records(const LineRecordReader& reader, PlainRecords& records);

/// As the record loop needs it: no line is a row if it is blank.
bool read_record(const LineRecordReader& reader, const Field& text, Record& record);

} // namespace textio::parser
