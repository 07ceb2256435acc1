#pragma once

#include "database.hpp"

#include <cstddef>
#include <string>

namespace sqlite_loader {

/// What became of a file.
struct Loaded {
    std::size_t rows = 0;
    std::size_t columns = 0;
    std::size_t irregular = 0;       ///< rows with too few fields, which are filled up, or too many
    std::size_t first_irregular = 0; ///< the line of the first of these, from 1
};

/// Loads the table that the file at `path` holds into a table `name`, which is made anew: with the
/// names that its columns have, and numbers as numbers. Throws `std::runtime_error` for a file that
/// cannot be read, holds no table or is no UTF-8; the database is then as it was.
Loaded load(const std::string& path, const std::string& name, Database& database);

} // namespace sqlite_loader
