#include "unicode.hpp"

#include <unicode/stringpiece.h>
#include <unicode/unistr.h>

#include <cstdint>

namespace detect_layout {

std::string to_utf8(std::u16string_view text) {
    std::string result;
    icu::UnicodeString(0, text.data(), static_cast<std::int32_t>(text.size())).toUTF8String(result);
    return result;
}

std::u16string to_utf16(std::string_view text) {
    const auto converted = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    return {converted.getBuffer(), static_cast<std::size_t>(converted.length())};
}

bool is_utf8(std::string_view text) {
    return to_utf8(to_utf16(text)) == text;
}

} // namespace detect_layout
