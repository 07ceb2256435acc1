// What the library takes of memory.
#include "reliability/memory.hpp"
#include "textio/textio.hpp"

#include <gtest/gtest.h>

#include <utility>

namespace {

using namespace test;
using namespace textio::parser;
using textio::DelimitedStrategy;

// Neither room that is foretold from the first lines, nor room for fields that are dropped again, is kept.
TEST(MemoryUse, AReadTakesLittleMoreThanItHolds) {
    std::u16string much_to_come;
    for (int line = 0; line < 2000; ++line) {
        much_to_come += u"a\n";
    }
    much_to_come += std::u16string(4'000'000, u'x');
    std::u16string much_to_drop = u"a,b";
    much_to_drop += std::u16string(1'000'000, u',') + u"\nc";
    const struct {
        const char* name;
        std::u16string text;
        textio::parser::options options;
        std::size_t fields;
    } cases[] = {
        {"fewer lines than foretold", much_to_come, {.delimiters = {u","}}, 2001},
        {"trailing delimiters", much_to_drop, {.delimiters = {u","}, .trailing_delimiters_rule = trailing_delimiters::drop}, 3},
        {"trailing delimiters of two units",
         much_to_drop,
         {.delimiters = {u",,"}, .trailing_delimiters_rule = trailing_delimiters::drop},
         2},
    };
    for (const auto& c : cases) {
        textio::FieldArray array;
        largest_block = 1 << 20;
        EXPECT_NO_THROW(read_into<DelimitedRecordReader>(array, c.options, c.text)) << c.name;
        largest_block = never;
        EXPECT_EQ(array.fields.size(), c.fields) << c.name;
    }
}

// Much of what a detection of a small table costs is the asking for memory.
TEST(MemoryUse, ADetectionOfASmallTableAsksForFewBlocks) {
    const textio::parser::options options;
    const zentor::io::text::typedetection::TypeAnalyzerOptions type_options;
    const std::u16string text = u"a;b\n1;2,5\n3;4,5\n6;7,5\n";
    textio::detection::StrategySelector selector(options, type_options);
    const std::size_t blocks = blocks_made;
    const auto strategy = selector.pick_strategy(textio::Field(text), 250);
    // Where a string holds few units itself, some of the options' need a block as well.
    const std::size_t most = std::u16string().capacity() >= 7 ? 50 : 60;
    EXPECT_LE(blocks_made - blocks, most);
    EXPECT_EQ(strategy->options().delimiters.front(), u";");
}

TEST(MemoryUse, ColumnsTakeAByteEachToInspect) {
    constexpr std::size_t columns = 1000;
    DelimitedStrategy strategy({}, {}, u',');
    std::u16string line;
    for (std::size_t column = 0; column < columns; ++column) {
        line += column + 1 < columns ? u"1," : u"1\n";
    }
    const std::u16string text = line + line;
    strategy.field_array(sample_of(text));
    ASSERT_EQ(strategy.valuation().numeric_variables, columns);
    const std::size_t blocks = blocks_made;
    const std::size_t bytes = bytes_made;
    strategy.inspect_datatypes();
    EXPECT_EQ(blocks_made - blocks, 1U);
    EXPECT_EQ(bytes_made - bytes, columns);
    EXPECT_EQ(strategy.valuation().numeric_variables, 2 * columns);
}

TEST(MemoryUse, AStreamThatGrowsIsSeldomMoved) {
    constexpr std::size_t step = 100;
    constexpr std::size_t steps = 1000;
    Letters letters;
    const zentor::io::text::stream::TextStream stream(letters);
    const std::size_t before = bytes_made;
    for (std::size_t count = 1; count <= steps; ++count) {
        stream.resizeInternalBuffer(count * step);
        ASSERT_EQ(stream.data_end - stream.buffer_begin, static_cast<std::ptrdiff_t>(count * step));
        stream.data_end[-1] = static_cast<char16_t>(count);
    }
    EXPECT_LT(bytes_made - before, 5 * steps * step * sizeof(char16_t));
    const std::size_t room = steps * step;
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room); }), Outcome::out_of_memory);
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room + 1); }), Outcome::out_of_memory);
    stream.resizeInternalBuffer(2 * room);
    EXPECT_EQ(with_failing_allocation(0, [&] { stream.resizeInternalBuffer(2 * room + 1); }), Outcome::done_without);
    EXPECT_EQ(stream.data_end - stream.buffer_begin, static_cast<std::ptrdiff_t>(2 * room + 1));
    EXPECT_EQ(stream.buffer_begin[room - 1], steps) << "what was held is held";
    EXPECT_THROW(stream.resizeInternalBuffer(SIZE_MAX), std::bad_alloc);
}

TEST(MemoryUse, ReadingOnAllocatesNothingForARecord) {
    const textio::DelimitedStrategy layout({}, {}, u',');
    std::u16string buffer(20, u'x');
    const auto allocations = [&](std::size_t rows) {
        std::u16string text;
        for (std::size_t row = 0; row < rows; ++row) {
            text += row % 7 == 0 ? u"1,\"2\"\"2\"\n" : u"1,\"2\"\"2\",\"3\n3\"\n";
        }
        textio::reading::Reader reader(layout, textio::Field(text), {.policy = textio::reading::Policy::pad, .fields = 3});
        const std::size_t enough = SIZE_MAX / 2;
        allocations_until_failure = enough;
        while (reader.next()) {
            for (const textio::Field& field : reader.fields()) {
                static_cast<void>(textio::reading::cell_value(field, reader.options(), buffer));
            }
        }
        return enough - std::exchange(allocations_until_failure, never);
    };
    EXPECT_LT(allocations(100'000), allocations(100) + 200);
}

} // namespace
