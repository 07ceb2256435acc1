/// \file
/// What the columns of a reading are called, and what they hold.
#pragma once

#include "advice/number_marks.hpp"
#include "advice/reading.hpp"
#include "advice/table_start.hpp"
#include "textio/advice.hpp"
#include "textio/field.hpp"
#include "textio/type_analyzer.hpp"

#include <cstddef>
#include <vector>

namespace textio::advice {

/// What one walk through the data of a table counts.
struct TableTally {
    std::vector<Column> columns; ///< with their values and what is missing, and nothing else yet
    NumberMarks marks;           ///< of the numbers in the first rows
};

/// Counts over a reading's table, which begins at `start`. `lines` is the text read as one field a
/// line with the comments of the reading; `type_options` have the texts that count as missing.
[[nodiscard]] TableTally
tally_of(const Reading& reading, const FieldArray& lines, const TableStart& start,
         const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);

/// Fills in the names and the classes of a table's columns; `type_options` have the marks of the
/// numbers as well.
void describe_columns(const Reading& reading, const FieldArray& lines, const TableStart& start,
                      const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options,
                      std::vector<Column>& columns);

} // namespace textio::advice
