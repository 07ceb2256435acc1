/// Loads all files of a directory into a database, each into a table of its own:
///
///     sqlite_loader stock.db examples/data
///
/// Nobody has to say how they are laid out. A line for each file tells what became of it; the exit
/// status is 1 if one was not loaded, and 2 if the database cannot be written.
#include "loading.hpp"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> files_in(const fs::path& directory) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(directory)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The name of the file without its ending, in letters, digits and underscores of ASCII.
std::string table_name(const fs::path& file) {
    std::string name = file.stem().string();
    std::replace_if(
        name.begin(), name.end(),
        [](char byte) {
            const bool is_letter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
            return !is_letter && !(byte >= '0' && byte <= '9');
        },
        '_');
    return name;
}

/// Tells on a line what became of the file. Gives whether it was loaded.
bool load_file(const fs::path& file, sqlite_loader::Database& database) {
    std::cout << file.filename().string() << ": ";
    try {
        const auto loaded = sqlite_loader::load(file.string(), table_name(file), database);
        std::cout << loaded.rows << " rows of " << loaded.columns << " columns";
        if (loaded.irregular > 0) {
            std::cout << ", " << loaded.irregular << " irregular, the first on line "
                      << loaded.first_irregular;
        }
        std::cout << '\n';
        return true;
    } catch (const std::exception& error) {
        std::cout << "not loaded, " << error.what() << '\n';
        return false;
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: sqlite_loader DATABASE DIRECTORY\n";
        return 2;
    }
    try {
        sqlite_loader::Database database(arguments[1]);
        bool all_loaded = true;
        for (const fs::path& file : files_in(arguments[2])) {
            all_loaded = load_file(file, database) && all_loaded;
        }
        return all_loaded ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "sqlite_loader: " << error.what() << '\n';
        return 2;
    }
}
