#include "parser/reading.hpp"

#include <gtest/gtest.h>

namespace {

using namespace test;
using namespace textio::parser;

TEST(RecordLoop, NeedsOnlyAnArrayToBegin) {
    textio::output::DetectionOutputBuilder builder;
    builder.field_array = std::make_unique<textio::FieldArray>();
    const options options = comma_options();
    textio::Field text(u"a,b\n\nc,\n");
    read_records(options, DelimitedRecordReader(options), 9, 9, text, builder);
    EXPECT_EQ(shown(*builder.field_array), "[a][b]//[c][]/");
}

} // namespace
