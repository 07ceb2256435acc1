/// \file
/// Where a table begins: the row of its names, and its first row of data.
#pragma once

#include "advice/cell_kind.hpp"
#include "advice/reading.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string_view>
#include <vector>

namespace textio::advice {

/// Where a table begins, in lines of the text, and what its columns are called.
struct TableStart {
    std::size_t names_line = SIZE_MAX; ///< `SIZE_MAX` if there are no names
    std::size_t first_data_line = 0;
    const char16_t* first_data = nullptr;   ///< where that line's data begin; null if not known
    std::vector<std::u16string_view> names; ///< one for each column; empty if they cannot be told
};

/// Finds the start of a reading's table. `lines` is the text read as one field a line with the
/// comments of the reading, `raw_lines` without any; `opener` opens these comments.
[[nodiscard]] TableStart find_table_start(const Reading& reading, const FieldArray& lines,
                                          const FieldArray& raw_lines, std::u16string_view opener,
                                          CellJudge& judge);

/// Puts the names on another line of the text, or, with `SIZE_MAX`, on none. Data that stood above
/// it begin on the next line then.
void move_names(TableStart& start, std::size_t names_line, const Reading& reading,
                const FieldArray& lines, const FieldArray& raw_lines, std::u16string_view opener);

/// Makes the data begin on another line of the text, which it may be too short for.
void move_first_data(TableStart& start, std::size_t first_data_line, const FieldArray& raw_lines);

} // namespace textio::advice
