#include "detection/blank_columns.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using Widths = std::vector<std::size_t>;

/// Counted anew from the positions that are blank on all lines.
std::size_t plain_columns(const std::vector<bool>& blank) {
    std::size_t columns = 0;
    for (std::size_t at = 0; at < blank.size(); ++at) {
        columns += !blank[at] && (at == 0 || blank[at - 1]) ? 1 : 0;
    }
    return std::max<std::size_t>(columns, 1);
}

Widths plain_widths(const std::vector<bool>& blank) {
    Widths widths;
    for (std::size_t at = 0; at < blank.size(); ++at) {
        if (at == 0 || (blank[at] && !blank[at - 1])) {
            widths.push_back(0);
        }
        ++widths.back();
    }
    return widths;
}

TEST(BlankColumns, AreCountedAsLinesComeIn) {
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        const std::size_t longest = round % 2 == 0 ? 9 : 140;
        const std::size_t first_length = random() % longest;
        std::vector<bool> blank(first_length, true);
        std::u16string whole(5 * longest, u' ');
        for (char16_t& unit : whole) {
            unit = random() % 8 == 0 ? u'x' : u' ';
        }
        textio::detection::BlankColumns columns(first_length, textio::Field(round % 3 == 0 ? u"" : whole));
        std::u16string_view rest = whole;
        for (int line = 0; line < 5; ++line) {
            const std::u16string_view text = rest.substr(0, line == 0 ? first_length : random() % longest);
            rest.remove_prefix(text.size());
            blank.resize(std::max(blank.size(), text.size()), false);
            for (std::size_t at = 0; at < text.size(); ++at) {
                blank[at] = blank[at] && text[at] == u' ';
            }
            columns.add_line(textio::Field(text), text.size());
            ASSERT_EQ(columns.columns(), plain_columns(blank)) << "round " << round << " line " << line;
            ASSERT_EQ(columns.widths(), plain_widths(blank)) << "round " << round << " line " << line;
        }
    }
}

} // namespace
