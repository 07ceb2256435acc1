#include "layout_names.hpp"

#include "unicode.hpp"

#include <unicode/uchar.h>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <array>
#include <utility>
#include <vector>

namespace detect_layout {

namespace {

using textio::enums::StrategyMode;

std::string unit_name(char16_t unit) {
    static constexpr std::array<std::pair<char16_t, std::string_view>, 8> names{{
        {u',', "comma"},
        {u';', "semicolon"},
        {u'\t', "tab"},
        {u' ', "space"},
        {u'|', "vertical bar"},
        {u':', "colon"},
        {u'/', "slash"},
        {u'\0', "NUL"},
    }};
    for (const auto& [named_unit, name] : names) {
        if (named_unit == unit) {
            return std::string(name);
        }
    }
    return u_isgraph(unit) != 0 ? fmt::format("'{}'", to_utf8({&unit, 1}))
                                : fmt::format("U+{:04X}", static_cast<unsigned>(unit));
}

} // namespace

std::string delimiter_name(std::u16string_view delimiter) {
    std::vector<std::string> names;
    for (const char16_t unit : delimiter) {
        names.push_back(unit_name(unit));
    }
    return fmt::format("{}", fmt::join(names, " "));
}

std::string layout_phrase(const textio::GenericStrategy& layout) {
    std::vector<std::string> delimiters;
    switch (layout.mode()) {
    case StrategyMode::delimited:
        for (const std::u16string& delimiter : layout.options().delimiters) {
            delimiters.push_back(delimiter_name(delimiter));
        }
        return fmt::format("delimited by {}", fmt::join(delimiters, " or "));
    case StrategyMode::space_aligned:
        return "aligned with blanks";
    case StrategyMode::fixed_width:
        return fmt::format("fixed widths {}", fmt::join(layout.options().field_widths, ", "));
    case StrategyMode::line_reader:
        break;
    }
    return "one field per line";
}

std::string counted(std::size_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

} // namespace detect_layout
