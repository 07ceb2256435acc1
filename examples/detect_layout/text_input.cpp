#include "text_input.hpp"

#include "character_set.hpp"
#include "textio/fixed_stream.hpp"
#include "user_error.hpp"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <utility>

namespace detect_layout {

namespace {

/// How far into a text its character set is looked for.
constexpr std::size_t head_bytes = 1'048'576;

std::string read_head(std::istream& bytes) {
    std::string head(head_bytes, '\0');
    bytes.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(bytes.gcount()));
    if (bytes.bad()) {
        throw UserError("cannot be read");
    }
    return head;
}

} // namespace

TextInput::TextInput(std::unique_ptr<std::istream> bytes, const std::string& encoding,
                     const std::vector<std::u16string>& line_endings)
    : bytes_(std::move(bytes)) {
    std::string head = read_head(*bytes_);
    character_set_ =
        encoding.empty() ? detect_character_set(head, head.size() < head_bytes) : encoding;
    source_ = std::make_unique<DecodingSource>(*bytes_, std::move(head), character_set_);
    stream_ = std::make_unique<zentor::io::text::stream::TextStream>(*source_);
    text_ = textio::get_fixed_stream(*stream_, line_endings);
}

bool TextInput::is_cut() const noexcept {
    return stream_->data_end - stream_->position > static_cast<std::ptrdiff_t>(text_.size);
}

std::unique_ptr<std::istream> open_bytes(const std::string& path) {
    if (path == "-") {
        return std::make_unique<std::istream>(std::cin.rdbuf());
    }
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        throw UserError("is a directory (--recursive walks it)");
    }
    auto file = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!file->is_open()) {
        const std::error_code reason(errno, std::generic_category());
        throw UserError(reason == std::errc::no_such_file_or_directory ? "no such file"
                                                                       : reason.message());
    }
    return file;
}

} // namespace detect_layout
