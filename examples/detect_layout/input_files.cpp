#include "input_files.hpp"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

namespace detect_layout {

namespace {

namespace fs = std::filesystem;

void add_files_below(const fs::path& directory, std::vector<InputFile>& files) {
    std::vector<fs::path> directories{directory};
    while (!directories.empty()) {
        const fs::path current = std::move(directories.back());
        directories.pop_back();
        std::error_code error;
        for (auto entry = fs::directory_iterator(current, error);
             !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::error_code ignored;
            if (entry->path().filename().native().starts_with('.')) {
                continue;
            }
            if (entry->is_directory(ignored) && !entry->is_symlink(ignored)) {
                directories.push_back(entry->path());
            } else if (entry->is_regular_file(ignored)) {
                files.push_back({entry->path().native(), {}});
            }
        }
        if (error) {
            files.push_back({current.native(), error.message()});
        }
    }
}

} // namespace

std::vector<InputFile> input_files(const Settings& settings) {
    std::vector<InputFile> files;
    for (const std::string& input : settings.inputs) {
        std::error_code ignored;
        if (!settings.recursive || !fs::is_directory(input, ignored)) {
            files.push_back({input, {}});
            continue;
        }
        const auto start = static_cast<std::ptrdiff_t>(files.size());
        add_files_below(input, files);
        std::sort(files.begin() + start, files.end(),
                  [](const InputFile& a, const InputFile& b) { return a.path < b.path; });
    }
    return files;
}

} // namespace detect_layout
