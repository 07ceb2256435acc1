// The words for what an answer says.
#include "textio/names.hpp"

#include <gtest/gtest.h>

#include <optional>

namespace {

TEST(Names, LeadBackToWhatTheyName) {
    using namespace textio;
    using enums::StrategyMode;
    for (const auto kind :
         {StrategyMode::delimited, StrategyMode::space_aligned, StrategyMode::fixed_width, StrategyMode::line_reader}) {
        EXPECT_EQ(kind_named(name_of(kind)), kind);
    }
    EXPECT_EQ(kind_named("lines"), std::nullopt);
    EXPECT_EQ(policy_named(""), std::nullopt);
    using zentor::io::text::typedetection::FieldClass;
    EXPECT_EQ(name_of(FieldClass::hex_number), "hex_number");
    EXPECT_EQ(name_of(FieldClass{}), "unknown");
}

TEST(Names, TellWhatALowFactorMeans) {
    using namespace textio;
    using enums::StrategyMode;
    EXPECT_EQ(doubt_about("first", StrategyMode::delimited), "the first line does not fit");
    EXPECT_EQ(doubt_about("prior", StrategyMode::delimited), "ordinary texts have such separators too");
    EXPECT_EQ(doubt_about("prior", StrategyMode::fixed_width), "positions may be chance");
    EXPECT_EQ(doubt_about("prior", StrategyMode::line_reader), "every text has lines");
    EXPECT_EQ(doubt_about("beauty", StrategyMode::delimited), "beauty");
}

} // namespace
