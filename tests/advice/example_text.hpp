/// \file
/// The example files as the library is given them.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace test {

inline bool is_continuation(const std::string& bytes, std::size_t at) {
    return at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xC0U) == 0x80U;
}

/// UTF-16 with a byte order mark, or UTF-8 up to three bytes a character; other bytes as they are.
inline std::u16string decoded(const std::string& bytes) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<unsigned char>(bytes[at])); };
    std::u16string text;
    if (bytes.starts_with("\xFF\xFE")) {
        for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
            text += static_cast<char16_t>(byte(at) | byte(at + 1) << 8U);
        }
        return text;
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const unsigned lead = byte(at);
        if (lead >= 0xE0 && lead < 0xF0 && is_continuation(bytes, at + 1) && is_continuation(bytes, at + 2)) {
            text += static_cast<char16_t>((lead & 0x0FU) << 12U | (byte(at + 1) & 0x3FU) << 6U | (byte(at + 2) & 0x3FU));
            at += 2;
        } else if (lead >= 0xC2 && lead < 0xE0 && is_continuation(bytes, at + 1)) {
            text += static_cast<char16_t>((lead & 0x1FU) << 6U | (byte(at + 1) & 0x3FU));
            ++at;
        } else {
            text += static_cast<char16_t>(lead);
        }
    }
    return text;
}

inline std::u16string example_text(const std::filesystem::path& file) {
    std::ifstream stream(std::filesystem::path(EXAMPLE_DATA) / file, std::ios::binary);
    return decoded({std::istreambuf_iterator<char>(stream), {}});
}

} // namespace test
