/// \file
/// Names and texts as the languages of the tools write them.
#pragma once

#include "table.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace import_statements {

/// A text in double quotes with backslashes: Python, R and the dot commands of SQLite.
[[nodiscard]] std::string python_text(std::string_view text);
[[nodiscard]] std::string r_text(std::string_view text);
[[nodiscard]] std::string dot_command_text(std::string_view text);

/// A vector of texts of R, and the doubles that a vector of the texts of numbers stands for.
[[nodiscard]] std::string r_vector(const std::vector<std::string>& texts);
[[nodiscard]] std::string r_numbers(const Table& table, const std::string& texts);

/// A list of texts of Python.
[[nodiscard]] std::string python_list(const std::vector<std::string>& texts);

/// A text in single quotes, and a name in double ones, as SQL has them.
[[nodiscard]] std::string sql_text(std::string_view text);
[[nodiscard]] std::string sql_name(std::string_view name);

/// A name that stays on one line, as commands of psql have to.
[[nodiscard]] std::string postgres_name(std::string_view name);

/// A text of Power Query.
[[nodiscard]] std::string m_text(std::string_view text);

/// A command for a POSIX shell.
[[nodiscard]] std::string shell_command(const std::vector<std::string>& words);

/// Text fit for a comment to the end of a line.
[[nodiscard]] std::string one_line(std::string_view text);

/// Each of `texts` as `change` has it.
[[nodiscard]] std::vector<std::string> each(const std::vector<std::string>& texts,
                                            std::string (*change)(std::string_view text));

/// The items with `between` between each two.
[[nodiscard]] std::string joined(const std::vector<std::string>& items, std::string_view between);

/// The names of the columns: those that have none are numbered, those that an earlier one has, in
/// capitals or not, get a number behind them. None has more than `most_bytes` or holds a NUL.
[[nodiscard]] std::vector<std::string> column_names(const Table& table, std::size_t most_bytes);
[[nodiscard]] std::vector<std::string> column_names(const Table& table);

/// All texts that stand for no value: the empty one, and those of the table.
[[nodiscard]] std::vector<std::string> missing_texts(const Table& table);

/// A name for a table, made of the name of its file: letters, digits and underscores.
[[nodiscard]] std::string table_name(const Table& table);

/// The arguments of a call, each on a line of its own.
class Arguments {
public:
    /// `sign` stands between name and value.
    explicit Arguments(std::string_view sign, std::string_view end = ",")
        : sign_(sign), end_(end) {}

    void add(std::string_view name, std::string_view value) {
        lines_.push_back(std::string(name).append(sign_).append(value));
    }
    void add(std::string_view value) { lines_.emplace_back(value); }

    /// All of them, each behind `indent`; `end` also behind the last one if `closes`.
    [[nodiscard]] std::string lines(std::string_view indent, bool closes) const;

private:
    std::string sign_;
    std::string end_;
    std::vector<std::string> lines_;
};

} // namespace import_statements
