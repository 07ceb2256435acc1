/// \file
/// Reads text whose fields have fixed widths.
#pragma once

#include "parser/line_marks.hpp"
#include "parser/record_loop.hpp"
#include "parser/short_way/plain_records.hpp"
#include "search/guarded_delim.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace textio::parser {

/// Built for one read, from options that outlive it and stay as they are meanwhile. Marks that
/// another read of the text has made can be handed over.
struct FixedWidthRecordReader {
    static constexpr bool comment_keeps_columns = true;
    static constexpr bool blank_lines_are_empty = false;

    explicit FixedWidthRecordReader(const options& options,
                                    std::shared_ptr<const LineMarks> line_marks = nullptr);

    const parser::options* options;
    std::vector<std::size_t> widths; ///< in code units
    std::shared_ptr<const LineMarks> marks;
    const GuardedDelim& guarded_line_ends; ///< that of the marks
    UnitSearch blanks;                     ///< finds the whitespace of the options
    UnitSearch plain_stops;  ///< finds what ends a plain line, and the end of the text
    std::size_t field_limit; ///< as many fields as there are widths
    bool has_plain_records;
};

/// Reads the record at the start of `text`. Behind the last width, what is left of the line becomes
/// one more span unless it is blank. `record_mark` becomes 0, or the mark of a record that ended at
/// a partial field which is not kept.
void read_fixed_record(const FixedWidthRecordReader& reader, const Field& text, Record& record,
                       std::uint8_t& record_mark);

/// Reads plain records until one is not.
void take_plain_records(const FixedWidthRecordReader& reader, PlainRecords& records);

/// As the record loop needs it: a marked record is a row even when it is blank.
bool read_record(const FixedWidthRecordReader& reader, const Field& text, Record& record);

} // namespace textio::parser
