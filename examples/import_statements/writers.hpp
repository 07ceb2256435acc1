/// \file
/// One function for each tool. `is_piped` tells that `table` is the output of its command
/// `convert`, which the statement starts, or reads from where it says.
#pragma once

#include "abilities.hpp"
#include "table.hpp"

#include <string>

namespace import_statements {

/// What the tools can be told; of those whose names for character sets differ, of `table`.
[[nodiscard]] Abilities data_table_abilities(const Table& table);
[[nodiscard]] Abilities duckdb_abilities(const Table& table);
[[nodiscard]] Abilities excel_abilities(const Table& table);
[[nodiscard]] Abilities pandas_abilities(const Table& table);
[[nodiscard]] Abilities polars_abilities(const Table& table);
[[nodiscard]] Abilities postgres_abilities(const Table& table);
[[nodiscard]] Abilities python_csv_abilities(const Table& table);
[[nodiscard]] Abilities readr_abilities(const Table& table);
[[nodiscard]] Abilities spark_abilities(const Table& table);
[[nodiscard]] Abilities sqlite_abilities(const Table& table);

/// The statements.
[[nodiscard]] std::string write_data_table(const Table& table, bool is_piped);
[[nodiscard]] std::string write_duckdb(const Table& table, bool is_piped);
[[nodiscard]] std::string write_excel(const Table& table, bool is_piped);
[[nodiscard]] std::string write_pandas(const Table& table, bool is_piped);
[[nodiscard]] std::string write_polars(const Table& table, bool is_piped);
[[nodiscard]] std::string write_postgres(const Table& table, bool is_piped);
[[nodiscard]] std::string write_python_csv(const Table& table, bool is_piped);
[[nodiscard]] std::string write_readr(const Table& table, bool is_piped);
[[nodiscard]] std::string write_spark(const Table& table, bool is_piped);
[[nodiscard]] std::string write_sqlite(const Table& table, bool is_piped);

} // namespace import_statements
