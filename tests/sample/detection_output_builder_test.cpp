#include "support/text.hpp"
#include "textio/field.hpp"

#include <gtest/gtest.h>

namespace {

using namespace textio;

TEST(DetectionOutputBuilder, TellsLinesWithFieldsFromEmptyOnes) {
    const std::u16string text = u"   abcde";
    output::DetectionOutputBuilder builder;
    builder.field_array = std::make_unique<FieldArray>();
    builder.whitespace = std::make_unique<std::u16string>(u" ");
    const auto add = [&](std::vector<std::size_t> spans) { builder.add_record(Field(text), Record{std::move(spans), 0}); };
    add({});
    add({0, 3});       // one blank field
    add({4, 4});       // one empty field
    add({0, 1, 1, 2}); // two blank fields
    builder.limit_fields = true;
    builder.field_limit = 1;
    add({3, 4, 4, 5});
    builder.field_limit = 0;
    add({3, 4});
    *builder.whitespace = u"";
    builder.limit_fields = false;
    add({0, 3});
    EXPECT_EQ(test::shown(*builder.field_array), "///[ ][ ]/[a]//[   ]/");
}

} // namespace
