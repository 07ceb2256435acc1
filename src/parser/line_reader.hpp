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

    [[nodiscard]] const UnitSearch& blanks() const noexcept { return blank_units; }

    std::shared_ptr<const LineMarks> marks;
    const GuardedDelim& guarded_line_ends; ///< that of the marks
    UnitSearch blank_units;                ///< finds the whitespace of the options
    bool has_plain_records; ///< line endings are neither blanks nor the end of the text
};

/// Reads the line at the start of `text`, blanks at its ends included. An empty one has no span.
void read_line(const LineRecordReader& reader, const Field& text, Record& record);

/// Reads plain lines until one is not.
void take_plain_records(const LineRecordReader& reader, PlainRecords& records);

/// As the record loop needs them: no line is a row if it is blank, and content starts behind
/// blanks.
bool read_record(const LineRecordReader& reader, const Field& text, Record& record);
std::size_t skip_to_content(const LineRecordReader& reader, const Field& text, std::size_t from);

/// Reads up to `max_rows` rows and `max_lines` lines of `text`, moves `text` to what was not read,
/// and adds the records to the array of `builder`.
ReadCounts read_records(const options& options, const LineRecordReader& reader,
                        std::size_t max_rows, std::size_t max_lines, Field& text,
                        output::DetectionOutputBuilder& builder);

} // namespace textio::parser
