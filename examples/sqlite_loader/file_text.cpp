#include "file_text.hpp"

#include <stdexcept>

namespace sqlite_loader {

FileBytes::FileBytes(const std::string& path) : file_(path, std::ios::binary) {
    if (!file_) {
        throw std::runtime_error("cannot be opened");
    }
}

std::size_t FileBytes::read(char* begin, char* end) {
    file_.read(begin, end - begin);
    if (file_.bad()) {
        throw std::runtime_error("cannot be read");
    }
    return static_cast<std::size_t>(file_.gcount());
}

} // namespace sqlite_loader
