#include "statement.hpp"

#include "abilities.hpp"
#include "words.hpp"
#include "writers.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace import_statements {

namespace {

/// How a statement is made.
struct Maker {
    Tool tool;
    std::string_view title; ///< of the tool in a comment
    std::string_view comment;
    Abilities (*abilities)(const Table& table);
    std::string (*write)(const Table& table, bool is_piped);
};

constexpr std::array<Maker, 10> makers{{
    {{"data.table", "R, fread of the package data.table"},
     "fread",
     "# ",
     data_table_abilities,
     write_data_table},
    {{"duckdb", "DuckDB, SQL with read_csv"}, "DuckDB", "-- ", duckdb_abilities, write_duckdb},
    {{"excel", "Excel and Power BI, a query in Power Query M"},
     "Power Query",
     "// ",
     excel_abilities,
     write_excel},
    {{"pandas", "Python, read_csv or read_fwf of pandas"},
     "pandas",
     "# ",
     pandas_abilities,
     write_pandas},
    {{"polars", "Python, read_csv of polars"}, "polars", "# ", polars_abilities, write_polars},
    {{"postgres", "PostgreSQL, CREATE TABLE and \\copy for psql"},
     "PostgreSQL",
     "-- ",
     postgres_abilities,
     write_postgres},
    {{"python-csv", "Python, nothing but its own csv"},
     "csv",
     "# ",
     python_csv_abilities,
     write_python_csv},
    {{"r", "R, read_delim, read_table or read_fwf of the package readr"},
     "readr",
     "# ",
     readr_abilities,
     write_readr},
    {{"spark", "Python, spark.read.csv"}, "Spark", "# ", spark_abilities, write_spark},
    {{"sqlite", "SQLite, CREATE TABLE and .import for its shell"},
     "SQLite",
     "-- ",
     sqlite_abilities,
     write_sqlite},
}};

/// Why the statement does not read the file itself, as a comment.
std::string explained(std::string_view comment, std::string_view title,
                      const std::vector<std::string>& obstacles, bool loses_rows) {
    std::string text = std::string(comment).append(title).append(" cannot be told of this file:\n");
    for (const std::string& obstacle : obstacles) {
        text.append(comment).append("  ").append(obstacle).append("\n");
    }
    return text.append(comment)
        .append("So detect_layout rewrites it")
        .append(loses_rows ? "; rows that do not fit are left out, and told of.\n" : ".\n");
}

} // namespace

std::span<const Tool> tools() {
    static const auto all = [] {
        std::array<Tool, makers.size()> list;
        std::transform(makers.begin(), makers.end(), list.begin(),
                       [](const Maker& maker) { return maker.tool; });
        return list;
    }();
    return all;
}

Statement statement_for(std::string_view name, const Table& table) {
    const auto* const maker = std::find_if(makers.begin(), makers.end(),
                                           [&](const Maker& one) { return one.tool.name == name; });
    if (maker == makers.end()) {
        throw std::invalid_argument("no tool is named '" + std::string(name) + "'");
    }
    const Abilities abilities = maker->abilities(table);
    Statement statement;
    statement.obstacles = obstacles(table, abilities);
    if (statement.obstacles.empty()) {
        statement.text = maker->write(table, false);
        return statement;
    }
    const bool loses_rows = has_extra_cells(table) && !abilities.extra_cells;
    statement.text = explained(maker->comment, maker->title, statement.obstacles, loses_rows) +
                     maker->write(converted(table, abilities), true);
    return statement;
}

} // namespace import_statements
