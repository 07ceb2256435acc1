#include "textio/field.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace {

using namespace textio;

TEST(Field, MovingLeavesNothingBehind) {
    const std::u16string text = u"abc";
    Field source(text);
    source.advance(9);
    EXPECT_EQ(source.size, 0U);
    EXPECT_EQ(source.data, text.data() + 3);
    source = Field(text);
    Field& itself = source;
    source = std::move(itself);
    EXPECT_EQ(source.size, 3U);
    const Field target(std::move(source));
    EXPECT_EQ(target.view(), u"abc");
    Field copy;
    EXPECT_EQ(copy.view(), u"");
    copy = target;
    EXPECT_EQ(copy.view(), target.view()) << "copying leaves the source its text";
    EXPECT_EQ(std::pair(source.data, source.size), std::pair(static_cast<const char16_t*>(nullptr), std::size_t{0}));
}

} // namespace
