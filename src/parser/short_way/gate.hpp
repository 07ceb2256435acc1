/// \file
/// When a text goes the short way, and why that gives the same as the full set of rules.
///
/// Two ways lead from a text to its sample:
/// - **The full rules** read any record under any options, one at a time: a reader's `read_record`
///   makes a `Record` of positions, and the record loop judges it and hands it on.
/// - **The short way** reads plain records only, in loops that look at 64 units at once and write
///   fields straight into the array.
///
/// A **plain** record is one whose every unit means what it looks like: a delimiter ends a field, a
/// line ending ends the line, and nothing has to be weighed against anything else. What is not
/// plain is left where it stands for the full rules, one record or comment at a time, and then the
/// short way goes on behind it. So the short way only has to know when it does not know.
///
/// Three things have to hold, and each is asked in one place:
/// - **Of the options**, when a reader is built (`has_plain_records`): no unit can be two things,
///   so the first stop that is met settles what ends there.
/// - **Of the builder**, when a read begins (`is_short_way_open`): it adds to a record nothing of
///   its own, so fields can be written without it.
/// - **Of each record**: it does not begin with one of `unplain_starts`, and the loops below find
///   nothing in it that they give back.
///
/// A **stop** is a unit at which a field can end or a quoted part begin. The **usual** delimiter or
/// line ending is one that is a single unit and begins no other, which is asked first.
#pragma once

#include "search/guarded_delim.hpp"
#include "textio/field.hpp"
#include "textio/options.hpp"

#include <string_view>

namespace textio::parser {

struct DelimitedRecordReader;
struct FixedWidthRecordReader;
struct LineRecordReader;

/// Whether under the options of the reader there can be plain records.
/// - Delimited: each delimiter is one unit, and no unit is two of delimiter, line ending, blank,
///   quote and end of text; nor is a run of delimiters an error that has to be told.
/// - Fixed width: a line that ends inside a field keeps that field, no width is 0, and no unit is
///   two of line ending, blank and end of text.
/// - Lines: the last of these.
[[nodiscard]] bool has_plain_records(const DelimitedRecordReader& reader);
[[nodiscard]] bool has_plain_records(const FixedWidthRecordReader& reader);
[[nodiscard]] bool has_plain_records(const LineRecordReader& reader);

/// Delimiters with which no plain record starts, in front of or behind its blanks: where each
/// separates and leading ones are not simply kept, behind them may stand a comment or nothing. The
/// other readers have none.
[[nodiscard]] std::u16string_view unplain_starts(const DelimitedRecordReader& reader);
template <class Reader>
[[nodiscard]] std::u16string_view unplain_starts(const Reader& /*reader*/) {
    return {};
}

/// Whether a read goes the short way: there can be plain records, and `builder` keeps as many
/// fields of a record as the reader gives and takes the same units for blanks.
template <class Reader>
[[nodiscard]] bool is_short_way_open(const Reader& reader, const options& options,
                                     const output::DetectionOutputBuilder& builder) {
    return reader.has_plain_records &&
           reader.field_limit == (builder.limit_fields ? builder.field_limit : SIZE_MAX) &&
           builder.whitespace != nullptr && *builder.whitespace == options.whitespace;
}

} // namespace textio::parser
