#include "cell_text.hpp"

#include "unicode.hpp"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <array>

namespace detect_layout {

namespace {

constexpr std::string_view ellipsis = "\u2026";

constexpr UChar32 soft_hyphen = 0xAD;

/// Takes up no room and only says how the letters around it are written or parted.
bool is_harmless(UChar32 format_character) {
    constexpr UChar32 non_joiner = 0x200C;
    constexpr UChar32 joiner = 0x200D;
    return format_character == soft_hyphen || format_character == non_joiner ||
           format_character == joiner;
}

/// Something to see in the place of a character that would move the cursor, change the terminal's
/// state or turn the direction of writing.
UChar32 visible(UChar32 character) {
    constexpr UChar32 arrow_right = 0x2192;
    constexpr UChar32 arrow_back = 0x21B5;
    constexpr UChar32 control_pictures = 0x2400;
    constexpr UChar32 picture_of_delete = 0x2421;
    constexpr UChar32 box = 0x25AF;
    switch (character) {
    case '\t':
        return arrow_right;
    case '\n':
        return arrow_back;
    case 0x7F:
        return picture_of_delete;
    default:
        break;
    }
    if (character < 0x20) {
        return control_pictures + character;
    }
    const auto category = u_charType(character);
    const bool is_harmful = category == U_CONTROL_CHAR || category == U_LINE_SEPARATOR ||
                            category == U_PARAGRAPH_SEPARATOR ||
                            (category == U_FORMAT_CHAR && !is_harmless(character));
    return category == U_SURROGATE ? replacement_character : is_harmful ? box : character;
}

std::size_t columns(UChar32 character) {
    const auto category = u_charType(character);
    if (category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK || is_harmless(character)) {
        return 0;
    }
    const auto east_asian = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return east_asian == U_EA_WIDE || east_asian == U_EA_FULLWIDTH ? 2 : 1;
}

std::u16string_view without_blanks(std::u16string_view text) {
    const auto first = text.find_first_not_of(u" \t");
    const auto last = text.find_last_not_of(u" \t\r\n");
    return first > last || last == std::u16string_view::npos ? std::u16string_view()
                                                             : text.substr(first, last - first + 1);
}

void append(std::string& utf8, UChar32 character) {
    std::array<char16_t, 2> units{};
    std::size_t length = 0;
    U16_APPEND_UNSAFE(units, length, character);
    utf8 += to_utf8({units.data(), length});
}

} // namespace

CellText printable(std::u16string_view text, std::size_t limit) {
    text = without_blanks(text);
    CellText cell;
    CellText kept; // as much of the cell as leaves room for the ellipsis
    for (std::size_t i = 0; i < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text, i, text.size(), character);
        character = visible(character);
        cell.width += columns(character);
        if (cell.width > limit) {
            kept.utf8 += ellipsis;
            ++kept.width;
            return kept;
        }
        if (character != soft_hyphen) { // terminals do not agree on its width
            append(cell.utf8, character);
        }
        if (cell.width < limit) {
            kept = cell;
        }
    }
    return cell;
}

std::string one_line(std::string_view utf8) {
    std::string result;
    const std::u16string text = to_utf16(utf8);
    for (std::size_t i = 0; i < text.size();) {
        UChar32 character = 0;
        U16_NEXT(text, i, text.size(), character);
        append(result, visible(character));
    }
    return result;
}

} // namespace detect_layout
