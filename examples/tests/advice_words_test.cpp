#include "advice_words.hpp"
#include "advised.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace detect_layout;
using textio::advice::Advice;
using textio::advice::Column;
using textio::advice::Proposal;
using textio::enums::StrategyMode;
using zentor::io::text::typedetection::FieldClass;

const textio::parser::options options;
const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;

Proposal with_columns(std::shared_ptr<textio::GenericStrategy> strategy, std::size_t columns) {
    Proposal proposal;
    proposal.strategy = std::move(strategy);
    proposal.columns.assign(columns, Column{{}, FieldClass::number, 1, 0});
    return proposal;
}

Proposal split_at(char16_t delimiter, std::size_t columns) {
    return with_columns(std::make_shared<textio::DelimitedStrategy>(options, type_options, delimiter), columns);
}

Proposal at_blanks(std::size_t columns) {
    return with_columns(std::make_shared<textio::SpaceAlignedStrategy>(options, type_options), columns);
}

Proposal at_positions(std::vector<std::size_t> widths) {
    const auto columns = widths.size();
    return with_columns(std::make_shared<textio::FixedWidthStrategy>(options, type_options, std::move(widths)), columns);
}

TEST(AdviceWords, say_how_far_to_trust_an_answer) {
    struct Case {
        double confidence;
        std::vector<Proposal> proposals;
        const char* phrase;
    };
    for (const Case& test : std::vector<Case>{
             {3, {split_at(u';', 3), split_at(u',', 2)}, "sure"},
             {2.9, {split_at(u';', 3), split_at(u',', 2)}, "probable"},
             {1.5, {split_at(u';', 3)}, "probable"},
             {1.49, {split_at(u';', 3), split_at(u',', 2)}, "look at it: could also be delimited by comma with 2 columns"},
             {1.1,
              {split_at(u';', 3), split_at(u';', 4), at_blanks(5)},
              "look at it: could also be aligned with blanks with 5 columns"},
             {1.1,
              {at_blanks(2), at_positions({3, 4}), at_positions({3, 2, 2})},
              "look at it: could also be fixed widths 3, 2, 2 with 3 columns"},
             {1, {split_at(u';', 3)}, "look at it"},
         }) {
        Advice advice;
        advice.confidence = test.confidence;
        advice.proposals = test.proposals;
        EXPECT_EQ(confidence_phrase(advice), test.phrase);
    }
}

TEST(AdviceWords, tell_what_the_rows_and_columns_are_like) {
    Proposal proposal = split_at(u';', 6);
    const std::vector<textio::Field> fields(6, textio::Field(u"1"));
    auto sample = std::make_unique<textio::FieldArray>();
    sample->add_empty_line(); // is no row
    for (std::size_t row = 0; row < 400; ++row) {
        const std::size_t count = row == 0 ? 2 : 6;
        sample->add_line(fields.data(), fields.data() + count, count);
    }
    proposal.strategy->field_array(std::move(sample));
    proposal.columns[5].type = FieldClass::date;
    EXPECT_EQ(evidence_phrase(proposal), "99 % of rows have 6 fields, 5 of 6 columns hold numbers, 1 dates or times");
    proposal.terms = {{"consistency", 0.998}, {"rows", 0.99}, {"prior", 0.3}, {"a new one", 0.5}};
    EXPECT_EQ(doubts_phrase(proposal), "few rows (0.99), ordinary texts have such separators too (0.30), a new one (0.50)");
    proposal.terms = {{"rows", 1}};
    EXPECT_EQ(doubts_phrase(proposal), "nothing");

    Proposal fixed = at_positions({3, 4});
    fixed.rows = fixed.regular_rows = 7;
    fixed.columns[0].type = FieldClass::text;
    fixed.columns[1].type = FieldClass::unknown;
    EXPECT_EQ(evidence_phrase(fixed), "100 % of rows keep to the columns, 1 of 2 columns holds text, 1 nothing");
}

TEST(AdviceWords, tell_what_a_column_holds) {
    for (const auto& [column, phrase] :
         std::vector<std::pair<Column, const char*>>{{{u"a", FieldClass::number, 20, 0}, "number"},
                                                     {{u"a", FieldClass::short_duration, 17, 3}, "duration, 3 of 20 missing"},
                                                     {{u"a", FieldClass::datetime, 1, 0}, "date and time"},
                                                     {{u"a", FieldClass::unknown, 0, 20}, "no values"}}) {
        EXPECT_EQ(column_phrase(column), phrase);
    }
    EXPECT_EQ(mark_name(u'.') + mark_name(u',') + mark_name(u'\'') + mark_name(u'\u00A0'), "pointcommaapostropheU+00A0");
}

} // namespace
