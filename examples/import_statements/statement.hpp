/// \file
/// The statement with which a tool reads a table.
#pragma once

#include "table.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace import_statements {

/// A tool for which there are statements.
struct Tool {
    std::string_view name; ///< as a user writes it
    std::string_view what; ///< it is, and what the statement is made of
};

/// All of them, by name.
[[nodiscard]] std::span<const Tool> tools();

/// What a tool is to be told.
struct Statement {
    std::string text; ///< whole lines of its language, with comments
    /// What it cannot be told of the file; then the statement reads the output of the table's
    /// command `convert`.
    std::vector<std::string> obstacles;
};

/// The statement for the tool `name`; throws `std::invalid_argument` if there is none of that name.
/// `table` has at least one column.
[[nodiscard]] Statement statement_for(std::string_view name, const Table& table);

} // namespace import_statements
