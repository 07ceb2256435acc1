#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sqlite_loader {

/// A column as SQLite is told of it.
struct Column {
    std::u16string name;
    bool is_number = false;
};

/// A database file. All throws `std::runtime_error` with what SQLite says.
class Database {
public:
    /// Opens the file, and creates it if there is none.
    explicit Database(const std::string& path);

    void execute(const std::string& statement);

    /// Makes a table, in the place of one of that name.
    void create_table(const std::string& name, const std::vector<Column>& columns);

    [[nodiscard]] sqlite3* handle() const noexcept { return handle_.get(); }

private:
    struct Closer {
        void operator()(sqlite3* handle) const noexcept { sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Closer> handle_;
};

/// Changes that are undone unless they are kept.
class Transaction {
public:
    explicit Transaction(Database& database) : database_(database) { database_.execute("BEGIN"); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();
    void keep();

private:
    Database& database_;
    bool is_over_ = false;
};

/// Puts rows into a table.
class Insertion {
public:
    Insertion(const Database& database, const std::string& table, std::size_t columns);

    /// Sets a value of the next row, columns counted from 0. An empty one is NULL. `value` may go
    /// away.
    void set(std::size_t column, std::u16string_view value);

    /// Inserts the row. Values that were not set are NULL.
    void insert_row();

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    const Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

} // namespace sqlite_loader
