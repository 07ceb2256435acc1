#include "character_set.hpp"

#include "binary_data.hpp"
#include "legacy_sets.hpp"
#include "user_error.hpp"

#include <unicode/localpointer.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace detect_layout {

namespace {

using std::string_view_literals::operator""sv;

/// How much of a text from before Unicode is tried in all character sets.
constexpr std::size_t telling_bytes = 65536;

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

/// Units of 16 or 32 bits, as far as whole ones are there.
template <std::size_t Bytes>
std::vector<UChar32> units_of(std::string_view head, bool is_little_endian) {
    std::vector<UChar32> units(head.size() / Bytes);
    for (std::size_t i = 0; i < units.size() * Bytes; ++i) {
        const std::size_t place = is_little_endian ? i % Bytes : Bytes - 1 - i % Bytes;
        const auto byte = static_cast<std::uint32_t>(static_cast<unsigned char>(head[i]));
        units[i / Bytes] |= static_cast<UChar32>(byte << (8 * place));
    }
    return units;
}

bool is_text(UChar32 character) {
    const bool is_control = u_iscntrl(character) != 0 && u_isspace(character) == 0;
    return u_isdefined(character) != 0 && !is_control &&
           u_charType(character) != U_PRIVATE_USE_CHAR;
}

/// Wrong units hardly ever make characters, and hardly ever those that every table has: digits,
/// blanks, delimiters, line ends. If these are few, all others must be of one alphabet.
bool is_table(const std::vector<UChar32>& units) {
    std::size_t characters = 0;
    std::map<UChar32, std::size_t> blocks; // of 256 characters
    for (const UChar32 unit : units) {
        characters += is_text(unit) ? 1 : 0;
        ++blocks[unit >> 8];
    }
    const std::size_t ascii = blocks[0];
    std::size_t alphabet = 0;
    for (const auto& [block, count] : blocks) {
        alphabet = block != 0 ? std::max(alphabet, count) : alphabet;
    }
    const bool has_common =
        4 * ascii >= units.size() ||
        (20 * ascii >= units.size() && 10 * (ascii + alphabet) >= 9 * units.size());
    return characters > 0 && has_common && 100 * (units.size() - characters) <= units.size();
}

const char* unmarked_utf32_or_utf16(std::string_view head) {
    head = head.substr(0, telling_bytes);
    return is_table(units_of<4>(head, true))    ? "UTF-32LE"
           : is_table(units_of<4>(head, false)) ? "UTF-32BE"
           : is_table(units_of<2>(head, true))  ? "UTF-16LE"
           : is_table(units_of<2>(head, false)) ? "UTF-16BE"
                                                : nullptr;
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
    return head.substr(line_end == std::string_view::npos ? 0 : line_end + 1, telling_bytes);
}

bool can_be_decoded(const char* character_set) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(character_set, &status));
    return U_SUCCESS(status) != 0;
}

} // namespace

CharacterSet detect_character_set(std::string_view head, bool is_whole_text) {
    for (const Mark& mark : marks) {
        if (head.starts_with(mark.bytes)) {
            return {mark.character_set, {}};
        }
    }
    if (const char* name = unmarked_utf32_or_utf16(head)) {
        return {name, {}};
    }
    if (const std::string kind = binary_kind(head); !kind.empty()) {
        throw UserError(fmt::format("no text but {}", kind));
    }
    if (holds_together_as_utf8(head, is_whole_text)) {
        return {"UTF-8", {}};
    }
    return most_likely_legacy_set(telling_part(head));
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
