#include "running.hpp"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace detect_layout;

/// What `query` gives: values with `|` between them, in lines.
std::string answer(const std::string& database, const std::string& query) {
    sqlite3* handle = nullptr;
    EXPECT_EQ(sqlite3_open(database.c_str(), &handle), SQLITE_OK);
    std::string rows;
    const auto add_row = [](void* all, int count, char** values, char** /*names*/) {
        for (int i = 0; i < count; ++i) {
            static_cast<std::string*>(all)->append(i == 0 ? "" : "|").append(values[i] == nullptr ? "NULL" : values[i]);
        }
        static_cast<std::string*>(all)->append("\n");
        return 0;
    };
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(handle, query.c_str(), add_row, &rows, &error), SQLITE_OK) << error;
    sqlite3_close(handle);
    return rows;
}

Outcome load(const std::string& database, const std::string& directory) {
    return run_script(PROGRAMS "/sqlite_loader/sqlite_loader " + database + " " + directory);
}

TEST(SqliteLoader, loads_unlike_files_with_names_and_types) {
    const std::string database = test_files() + ".db";
    std::filesystem::remove(database);
    const Outcome result = load(database, ".");
    EXPECT_EQ(result.status, 1) << "not all of them are tables in UTF-8";
    EXPECT_NE(result.output.find("\nletter.txt: not loaded, holds no table\n"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("\nwohnungen_cp1252.csv: not loaded, is no UTF-8; "), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("\nmeter_readings.csv: 15 rows of 4 columns, 3 irregular, the first on line 14\n"),
              std::string::npos)
        << result.output;
    EXPECT_EQ(answer(database, "SELECT count(*), typeof(Netto), sum(Netto), typeof(Kunde) FROM rechnungen"),
              "18|real|48741.27|text\n");
    EXPECT_EQ(answer(database, "SELECT name, type FROM pragma_table_info('orbit')"),
              "t|NUMERIC\nx|NUMERIC\ny|NUMERIC\nvx|NUMERIC\nvy|NUMERIC\n");
    EXPECT_EQ(answer(database, "SELECT title FROM reviews WHERE id = 2"), "\"Waterproof\" it is not\n");
    EXPECT_EQ(answer(database, "SELECT count(*), count(power) FROM meter_readings"), "15|13\n") << "what is missing is NULL";
}

TEST(SqliteLoader, loads_a_file_once_and_whole_or_not_at_all) {
    const std::string database = test_files() + ".db";
    const std::string folder = test_files() + "_folder/";
    std::filesystem::remove(database);
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "a b.csv") << "Id,id,,\"x\"\"y\"\n1,2,3,4\n5,6,7,8\n9,1,2,3\n";
    EXPECT_EQ(load(database, folder).status, 0);
    EXPECT_EQ(load(database, folder).output, "a b.csv: 3 rows of 4 columns\n");
    EXPECT_EQ(answer(database, "SELECT sum(Id), sum(id_2), sum(column_3) FROM a_b"), "15|9|12\n");
    EXPECT_EQ(answer(database, "SELECT name FROM pragma_table_info('a_b')"), "Id\nid_2\ncolumn_3\nx\"y\n");

    std::ofstream open_quote(folder + "a b.csv");
    open_quote << "n,m\n";
    for (int i = 0; i < 1000; ++i) {
        open_quote << "1,2\n";
    }
    open_quote << "3,\"" << std::string(40'000'000, 'x') << "\n";
    open_quote.close();
    EXPECT_EQ(load(database, folder).status, 1);
    EXPECT_EQ(answer(database, "SELECT count(*) FROM a_b"), "3\n") << "the table is the one before";
    EXPECT_EQ(load("/no_such_folder/x.db", folder).status, 2);
    std::filesystem::remove_all(folder);
}

} // namespace
