#include "character_set.hpp"

#include "user_error.hpp"

#include <unicode/localpointer.h>
#include <unicode/ucnv.h>
#include <unicode/ucsdet.h>
#include <unicode/utf8.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace detect_layout {

namespace {

using std::string_view_literals::operator""sv;

/// What a text is taken to be in when nothing tells: every byte is a character there.
constexpr auto last_resort = "windows-1252";

/// Below this, ICU's guess (0 to 100) is worse than the last resort.
constexpr std::int32_t least_confidence = 20;

/// How much ICU gets to see. More makes it slower, and not better.
constexpr std::size_t recognition_bytes = 65536;

struct Mark {
    std::string_view bytes;
    const char* character_set;
};

// The marks of UTF-32 come first, because that of UTF-16LE is the start of that of UTF-32LE.
constexpr std::array marks{
    Mark{"\xFF\xFE\0\0"sv, "UTF-32LE"}, Mark{"\0\0\xFE\xFF"sv, "UTF-32BE"},
    Mark{"\xEF\xBB\xBF"sv, "UTF-8"},    Mark{"\xFF\xFE"sv, "UTF-16LE"},
    Mark{"\xFE\xFF"sv, "UTF-16BE"},
};

/// UTF-16 without a mark: in most tables every other byte is zero in at least a quarter of the
/// units (digits, delimiters, line ends), and hardly any of the bytes between.
const char* unmarked_utf16(std::string_view head) {
    std::array<std::size_t, 2> zeros{};
    for (std::size_t i = 0; i < head.size(); ++i) {
        zeros[i % 2] += head[i] == '\0' ? 1 : 0;
    }
    const std::size_t units = head.size() / 2;
    const auto many = [units](std::size_t count) { return count > 0 && 4 * count >= units; };
    const auto few = [units](std::size_t count) { return 100 * count <= units; };
    if (many(zeros[1]) && few(zeros[0])) {
        return "UTF-16LE";
    }
    return many(zeros[0]) && few(zeros[1]) ? "UTF-16BE" : nullptr;
}

/// The UTF-8 character at `place`, negative if there is none; moves `place` behind it.
UChar32 next_character(const std::uint8_t* bytes, std::int32_t& place, std::int32_t length) {
    UChar32 character = 0;
    U8_NEXT(bytes, place, length, character);
    return character;
}

/// A few faults do not make a text anything else than UTF-8: other character sets hardly ever give
/// well-formed sequences of several bytes.
bool holds_together_as_utf8(std::string_view head, bool is_whole_text) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(head.data());
    const auto length = static_cast<std::int32_t>(head.size());
    std::size_t sequences = 0;
    std::size_t faults = 0;
    for (std::int32_t place = 0; place < length;) {
        const std::int32_t start = place;
        const bool is_fault = next_character(bytes, place, length) < 0;
        const bool may_go_on = place == length && !is_whole_text;
        faults += is_fault && !may_go_on ? 1 : 0;
        sequences += !is_fault && place - start > 1 ? 1 : 0;
    }
    return faults == 0 || sequences > 4 * faults;
}

/// The part of `head` that tells most: from the start of the line with the first byte that is not
/// ASCII.
std::string_view telling_part(std::string_view head) {
    std::size_t telling = 0;
    while (telling < head.size() && U8_IS_SINGLE(head[telling])) {
        ++telling;
    }
    const auto before = head.substr(0, telling);
    const auto line_end = before.rfind('\n');
    return head.substr(line_end == std::string_view::npos ? 0 : line_end + 1, recognition_bytes);
}

bool can_be_decoded(const char* character_set) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(character_set, &status));
    return U_SUCCESS(status) != 0;
}

std::string recognised_by_icu(std::string_view head) {
    const auto part = telling_part(head);
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUCharsetDetectorPointer detector(ucsdet_open(&status));
    ucsdet_setText(detector.getAlias(), part.data(), static_cast<std::int32_t>(part.size()),
                   &status);
    const UCharsetMatch* match = ucsdet_detect(detector.getAlias(), &status);
    if (U_FAILURE(status) != 0 || match == nullptr ||
        ucsdet_getConfidence(match, &status) < least_confidence) {
        return last_resort;
    }
    const std::string name = ucsdet_getName(match, &status);
    // Windows-1252 has all of ISO-8859-1's printing characters, and more that may come later on.
    return name == "ISO-8859-1" || !can_be_decoded(name.c_str()) ? last_resort : name;
}

} // namespace

std::string detect_character_set(std::string_view head, bool is_whole_text) {
    for (const Mark& mark : marks) {
        if (head.starts_with(mark.bytes)) {
            return mark.character_set;
        }
    }
    if (const char* name = unmarked_utf16(head)) {
        return name;
    }
    return holds_together_as_utf8(head, is_whole_text) ? "UTF-8" : recognised_by_icu(head);
}

std::string known_character_set(const std::string& name) {
    if (!can_be_decoded(name.c_str())) {
        throw UserError(fmt::format("unknown character set '{}'", name));
    }
    UErrorCode status = U_ZERO_ERROR;
    const char* usual_name = ucnv_getStandardName(name.c_str(), "MIME", &status);
    return usual_name != nullptr ? usual_name : name;
}

} // namespace detect_layout
