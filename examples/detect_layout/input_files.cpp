#include "input_files.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace detect_layout {

namespace {

void add_files_below(const std::filesystem::path& directory, std::vector<std::string>& files) {
    namespace fs = std::filesystem;
    std::error_code error;
    const auto skip = fs::directory_options::skip_permission_denied;
    for (auto entry = fs::recursive_directory_iterator(directory, skip, error);
         !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (entry->path().filename().native().starts_with('.')) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file(ignored)) {
            files.push_back(entry->path().native());
        }
    }
}

} // namespace

std::vector<std::string> walk_directories(const std::vector<std::string>& inputs) {
    std::vector<std::string> files;
    for (const std::string& input : inputs) {
        std::error_code ignored;
        if (!std::filesystem::is_directory(input, ignored)) {
            files.push_back(input);
            continue;
        }
        const auto start = static_cast<std::ptrdiff_t>(files.size());
        add_files_below(input, files);
        std::sort(files.begin() + start, files.end());
    }
    return files;
}

} // namespace detect_layout
