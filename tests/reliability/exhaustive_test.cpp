// All short texts over a few telling units: whatever layout was found, no unit of the text is lost.
#include "support/text.hpp"
#include "textio/textio.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace textio;
using enums::StrategyMode;

bool is_blank(std::u16string_view units) {
    return units.find_first_not_of(u"\n ") == std::u16string_view::npos;
}

/// Whether `gap` can stand between two fields of a line.
bool separates_fields(const GenericStrategy& strategy, std::u16string_view gap) {
    switch (strategy.mode()) {
    case StrategyMode::delimited:
        return gap == strategy.options().delimiters.front();
    case StrategyMode::space_aligned:
        return !gap.empty() && is_blank(gap);
    default:
        return gap.empty() && strategy.mode() == StrategyMode::fixed_width;
    }
}

/// Whether the units of `text` that are in no field are separators, each where it belongs.
bool shows_whole_text(const GenericStrategy& strategy, std::u16string_view text) {
    const FieldArray& sample = *strategy.field_array();
    std::size_t position = 0;
    std::ptrdiff_t lines_passed = 0;
    for (std::size_t line = 0; line < sample.line_count(); ++line, ++lines_passed) {
        const std::span<const Field> fields = sample.line(line);
        for (const Field& field : fields) {
            const auto start = static_cast<std::size_t>(field.data - text.data());
            if (start < position || start + field.size > text.size()) {
                return false;
            }
            const std::u16string_view gap = text.substr(position, start - position);
            const bool starts_line = &field == fields.data();
            if (starts_line ? !is_blank(gap) || std::count(gap.begin(), gap.end(), u'\n') != lines_passed
                            : !separates_fields(strategy, gap)) {
                return false;
            }
            position = start + field.size;
            lines_passed = 0;
        }
    }
    return is_blank(text.substr(position));
}

TEST(Exhaustive, NoUnitOfAShortTextIsLost) {
    constexpr std::u16string_view alphabet = u",\" \n1a";
    constexpr std::size_t longest = 6;
    const parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions types;
    detection::StrategySelector selector(options, types);
    std::vector<std::u16string> texts{u""}; // in the order of their lengths
    for (std::size_t next = 0; next < texts.size(); ++next) {
        const std::u16string text = texts[next];
        const auto found = selector.pick_strategy(Field(text), SIZE_MAX);
        ASSERT_TRUE(shows_whole_text(*found, text)) << test::shown(text) << " as " << test::shown(*found->field_array());
        for (const char16_t unit : text.size() < longest ? alphabet : std::u16string_view()) {
            texts.push_back(text + unit);
        }
    }
}

} // namespace
