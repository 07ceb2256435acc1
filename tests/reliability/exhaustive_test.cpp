// All short texts over a few telling units: whatever the layout found, its sample must be the text.
#include "support/text.hpp"
#include "textio/textio.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace textio;
using enums::StrategyMode;

/// Whether `gap` can stand between two fields of a line.
bool separates_fields(const GenericStrategy& strategy, std::u16string_view gap) {
    switch (strategy.mode()) {
    case StrategyMode::delimited:
        return gap == strategy.options().delimiters.front();
    case StrategyMode::space_aligned:
        return !gap.empty() && gap.find_first_not_of(u" \t") == std::u16string_view::npos;
    case StrategyMode::fixed_width:
        return gap.empty();
    default:
        return false;
    }
}

/// Whether `gap` can stand in front of a line with fields, `lines` lines behind the last such line.
bool separates_lines(std::u16string_view gap, std::size_t lines) {
    return std::count(gap.begin(), gap.end(), u'\n') == static_cast<std::ptrdiff_t>(lines) &&
           gap.find_first_not_of(u"\n ") == std::u16string_view::npos;
}

/// What is wrong with the sample of `strategy`; empty if all is well.
std::string fault(const GenericStrategy& strategy, std::u16string_view text) {
    const FieldArray& sample = *strategy.field_array();
    std::size_t position = 0;
    std::size_t lines_passed = 0;
    for (std::size_t line = 0; line < sample.line_count(); ++line) {
        bool is_first = true;
        for (const Field& field : sample.line(line)) {
            const auto start = static_cast<std::size_t>(field.data - text.data());
            if (start < position || start + field.size > text.size()) {
                return "a field out of place";
            }
            const std::u16string_view gap = text.substr(position, start - position);
            if (is_first ? !separates_lines(gap, lines_passed) : !separates_fields(strategy, gap)) {
                return "units lost before " + test::shown(field.view());
            }
            position = start + field.size;
            lines_passed = is_first ? 0 : lines_passed;
            is_first = false;
        }
        ++lines_passed;
    }
    const std::u16string_view rest = text.substr(position);
    return rest.find_first_not_of(u"\n ") == std::u16string_view::npos ? "" : "a rest not read";
}

TEST(Exhaustive, NoUnitOfAShortTextIsLost) {
    constexpr std::u16string_view alphabet = u",\" \n1a";
    constexpr std::size_t longest = 6;
    const parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    detection::StrategySelector selector(options, type_options);
    std::vector<std::u16string> texts{u""};
    for (std::size_t length = 1; length <= longest; ++length) {
        std::vector<std::u16string> longer;
        for (const std::u16string& text : texts) {
            for (const char16_t unit : alphabet) {
                longer.push_back(text + unit);
                const auto found = selector.pick_strategy(Field(longer.back()), SIZE_MAX);
                ASSERT_EQ(fault(*found, longer.back()), "")
                    << test::shown(longer.back()) << " as " << static_cast<int>(found->mode())
                    << " " << test::shown(*found->field_array());
            }
        }
        texts = std::move(longer);
    }
}

} // namespace
