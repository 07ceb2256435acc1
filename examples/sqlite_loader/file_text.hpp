#pragma once

#include <textio/textio.hpp>

#include <fstream>
#include <string>

namespace sqlite_loader {

/// The bytes of a file.
class FileBytes : public textio::utf8::ByteSource {
public:
    /// Throws `std::runtime_error` if the file cannot be opened.
    explicit FileBytes(const std::string& path);

    /// Throws `std::runtime_error` if the file cannot be read.
    std::size_t read(char* begin, char* end) override;

private:
    std::ifstream file_;
};

/// A file of UTF-8 as the library wants it, of any size.
class FileText {
public:
    explicit FileText(const std::string& path) : bytes_(path), source_(bytes_), stream_(source_) {}

    [[nodiscard]] zentor::io::text::stream::TextStream& stream() noexcept { return stream_; }

    /// How much of what has been read so far was no UTF-8.
    [[nodiscard]] std::size_t replaced() const noexcept { return source_.replaced(); }

private:
    FileBytes bytes_;
    textio::utf8::Source source_;
    zentor::io::text::stream::TextStream stream_;
};

} // namespace sqlite_loader
