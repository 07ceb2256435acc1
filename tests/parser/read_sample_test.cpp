#include "parser/read_sample.hpp"

#include "support/text.hpp"
#include "textio/strategy.hpp"

#include <gtest/gtest.h>

namespace {

using namespace textio;
using Types = zentor::io::text::typedetection::TypeAnalyzerOptions;

TEST(ReadSample, ReadsOnceFromTheStartAndFixedHeadersOnTop) {
    const std::u16string units = u"t\n1,2,3,4\n5,6,7,8\n";
    const Field text(units);
    output::DetectionOutputBuilder builder;
    builder.text = &text;
    builder.sample_lines = 1;
    parser::options options{.header_lines = 1, .detect_header_lines = false};
    const auto fixed = std::make_shared<FixedWidthStrategy>(options, Types(), std::vector<std::size_t>{1, 1});
    parser::read_sample(builder, fixed, false);
    EXPECT_EQ(test::shown(*fixed->field_array()), "[t]/[1][,]/");
    EXPECT_EQ(fixed->num_variables(), SIZE_MAX);
    options.detect_header_lines = true;
    const auto delimited = std::make_shared<DelimitedStrategy>(options, Types(), u',');
    parser::read_sample(builder, delimited, true);
    const auto all = std::make_shared<DelimitedStrategy>(options, Types(), u',');
    all->header_lines(1);
    builder.sample_lines = SIZE_MAX;
    parser::read_sample(builder, delimited, true);
    parser::read_sample(builder, all, false);
    EXPECT_EQ(test::shown(*delimited->field_array()), "[t]/") << "nothing on top of a detected one, and read once";
    EXPECT_EQ(test::shown(*all->field_array()), "[t]/[1][2][3][4]/[5][6][7][8]/");
}

} // namespace
