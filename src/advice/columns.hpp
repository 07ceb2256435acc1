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

/// The marks of the numbers in the first rows of a reading's table, which begins at `start`.
[[nodiscard]] NumberMarks marks_of(const Reading& reading, const FieldArray& lines,
                                   const TableStart& start);

/// The columns of a reading's table, which begins at `start`. `lines` is the text read as one field
/// a line with the comments of the reading; `type_options` have the marks of the numbers.
[[nodiscard]] std::vector<Column>
columns_of(const Reading& reading, const FieldArray& lines, const TableStart& start,
           const zentor::io::text::typedetection::TypeAnalyzerOptions& type_options);

} // namespace textio::advice
