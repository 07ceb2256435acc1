#include "database.hpp"

#include <cstddef>
#include <stdexcept>

namespace sqlite_loader {

namespace {

void check(int code, sqlite3* handle) {
    if (code != SQLITE_OK && code != SQLITE_DONE) {
        throw std::runtime_error(handle == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(handle));
    }
}

/// A name as statements have it, whatever is in it.
template <typename Unit>
std::basic_string<Unit> quoted(const std::basic_string<Unit>& name) {
    const Unit quote{'"'};
    std::basic_string<Unit> text(1, quote);
    for (const Unit unit : name) {
        text += unit;
        if (unit == quote) {
            text += quote;
        }
    }
    return text + quote;
}

} // namespace

Database::Database(const std::string& path) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open(path.c_str(), &handle);
    handle_.reset(handle);
    check(code, handle);
}

void Database::execute(const std::string& statement) {
    check(sqlite3_exec(handle(), statement.c_str(), nullptr, nullptr, nullptr), handle());
}

void Database::create_table(const std::string& name, const std::vector<Column>& columns) {
    execute("DROP TABLE IF EXISTS " + quoted(name));
    const std::string start = "CREATE TABLE " + quoted(name) + " (";
    std::u16string statement(start.begin(), start.end()); // of ASCII, as the names of tables are
    for (const Column& column : columns) {
        statement += &column == &columns.front() ? u"" : u", ";
        statement += quoted(column.name) + (column.is_number ? u" NUMERIC" : u" TEXT");
    }
    statement += u")";
    sqlite3_stmt* prepared = nullptr;
    check(sqlite3_prepare16_v2(handle(), statement.c_str(), -1, &prepared, nullptr), handle());
    sqlite3_step(prepared);
    check(sqlite3_finalize(prepared), handle());
}

Transaction::~Transaction() {
    if (!is_over_) {
        sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::keep() {
    database_.execute("COMMIT");
    is_over_ = true;
}

Insertion::Insertion(const Database& database, const std::string& table, std::size_t columns)
    : database_(database) {
    std::string statement = "INSERT INTO " + quoted(table) + " VALUES (?";
    for (std::size_t i = 1; i < columns; ++i) {
        statement += ",?";
    }
    sqlite3_stmt* prepared = nullptr;
    check(sqlite3_prepare_v2(database.handle(), (statement + ")").c_str(), -1, &prepared, nullptr),
          database.handle());
    statement_.reset(prepared);
}

void Insertion::set(std::size_t column, std::u16string_view value) {
    if (!value.empty()) {
        const auto bytes = static_cast<int>(value.size() * sizeof(char16_t));
        check(sqlite3_bind_text16(statement_.get(), static_cast<int>(column) + 1, value.data(),
                                  bytes, SQLITE_TRANSIENT),
              database_.handle());
    }
}

void Insertion::insert_row() {
    sqlite3_step(statement_.get());
    check(sqlite3_reset(statement_.get()), database_.handle());
    sqlite3_clear_bindings(statement_.get());
}

} // namespace sqlite_loader
