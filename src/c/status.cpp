#include "c/status.hpp"

#include "textio/version.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace textio::c {

namespace {

/// Has a fixed size, so that it can tell of memory that has run out.
using ErrorText = std::array<char, 256>;

ErrorText& error_text() noexcept {
    thread_local ErrorText text{};
    return text;
}

bool continues_character(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

textio_status failed(textio_status status, std::string_view text) noexcept {
    ErrorText& kept = error_text();
    std::size_t size = std::min(text.size(), kept.size() - 1);
    while (size > 0 && size < text.size() && continues_character(text[size])) {
        --size;
    }
    *std::copy_n(text.begin(), size, kept.begin()) = '\0';
    return status;
}

} // namespace textio::c

const char* textio_version() {
    return TEXTIO_VERSION_STRING;
}

const char* textio_last_error() {
    return textio::c::error_text().data();
}
