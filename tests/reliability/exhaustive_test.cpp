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

/// All texts of up to `longest` units, in the order of their lengths.
std::vector<std::u16string> all_texts(std::u16string_view alphabet, std::size_t longest) {
    std::vector<std::u16string> texts{u""};
    for (std::size_t next = 0; next < texts.size() && texts[next].size() < longest; ++next) {
        for (const char16_t unit : alphabet) {
            texts.push_back(texts[next] + unit);
        }
    }
    return texts;
}

TEST(Exhaustive, NoUnitOfAShortTextIsLost) {
    const parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions types;
    detection::StrategySelector selector(options, types);
    for (const std::u16string& text : all_texts(u",\" \n1a", 6)) {
        const auto found = selector.pick_strategy(Field(text), SIZE_MAX);
        ASSERT_TRUE(shows_whole_text(*found, text)) << test::shown(text) << " as " << test::shown(*found->field_array());
    }
}

bool lies_in(std::u16string_view part, std::u16string_view text) {
    return part.empty() || (part.data() >= text.data() && part.data() + part.size() <= text.data() + text.size());
}

/// What must hold of any proposal; empty if it does.
std::string fault_of(const advice::Proposal& proposal, const std::u16string& text) {
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n')) + 1;
    const std::size_t rows = proposal.columns.empty() ? 0 : proposal.columns.front().values + proposal.columns.front().missing;
    if (!(proposal.score > 0 && proposal.score <= 1)) {
        return "score";
    }
    if (proposal.first_data_line >= lines ||
        (proposal.names_line != advice::no_line && proposal.names_line >= proposal.first_data_line)) {
        return "start";
    }
    const bool has_odd_column = std::any_of(proposal.columns.begin(), proposal.columns.end(), [&](const advice::Column& column) {
        return !lies_in(column.name, text) || column.values + column.missing != rows;
    });
    return proposal.columns.empty() || has_odd_column || rows > lines ? "columns" : "";
}

TEST(Exhaustive, AdviceOnAShortTextIsSound) {
    for (const std::u16string& text : all_texts(u",|\" \n1a", 5)) {
        const advice::Advice found = advice::advise(Field(text), SIZE_MAX);
        ASSERT_FALSE(found.proposals.empty()) << test::shown(text);
        ASSERT_GE(found.confidence, 1) << test::shown(text);
        for (const advice::Proposal& proposal : found.proposals) {
            ASSERT_EQ(fault_of(proposal, text), "")
                << test::shown(text) << " as " << test::shown(*proposal.strategy->field_array());
        }
    }
}

} // namespace
