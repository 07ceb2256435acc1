#include "textio/fixed_stream.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace {

using textio::get_fixed_stream;
using zentor::io::text::stream::TextSource;
using zentor::io::text::stream::TextStream;

using Strings = std::vector<std::u16string>;

constexpr std::size_t limit = 4'194'304;
const Strings pairs{u"\r\n"};
const Strings usual{u"\r\n", u"\n", u"\r"};

class StringSource : public TextSource {
public:
    explicit StringSource(std::u16string text, bool fails_once = false) : text_(std::move(text)), fails_(fails_once) {}

    std::size_t read(char16_t* begin, char16_t* end) override {
        if (std::exchange(fails_, false)) {
            std::fill(begin, end, u'?');
            throw std::runtime_error("not now");
        }
        const std::size_t count = std::min(static_cast<std::size_t>(end - begin), text_.size() - read_);
        std::copy_n(text_.data() + read_, count, begin);
        read_ += count;
        return count;
    }

private:
    std::u16string text_;
    std::size_t read_ = 0;
    bool fails_;
};

std::u16string long_text(std::size_t units, std::vector<std::pair<std::size_t, char16_t>> others) {
    std::u16string text(units, u'a');
    for (const auto& [position, unit] : others) {
        text[position] = unit;
    }
    return text;
}

TEST(FixedStream, GivesAllOrWholeLines) {
    const std::vector<std::tuple<const char*, std::u16string, Strings, std::size_t>> cases{
        {"empty", u"", usual, 0},
        {"one unit", u"a", usual, 1},
        {"two units", u"ab", usual, 2},
        {"a chunk", std::u16string(131'072, u'a'), usual, 131'072},
        {"odd size", std::u16string(1'000'003, u'a'), usual, 1'000'003},
        {"exactly the limit", std::u16string(limit, u'a'), usual, limit},
        {"longer", long_text(limit + 1, {{limit - 16, u'\n'}}), usual, limit - 15},
        {"ending is the last unit", long_text(limit + 9, {{limit - 1, u'\n'}}), usual, limit},
        {"no ending", std::u16string(limit + 1, u'a'), usual, 0},
        {"pair across the limit", long_text(limit + 9, {{9, u'\r'}, {10, u'\n'}, {limit - 1, u'\r'}, {limit, u'\n'}}), pairs, 10},
        {"pair and its second unit", long_text(limit + 9, {{9, u'\r'}, {10, u'\n'}}), usual, 11},
        {"long endings",
         long_text(limit + 99, {{limit - 64, u'b'}, {limit - 1, u'b'}}),
         {std::u16string(70, u'a') + u'b'},
         limit - 134 + 1},
        {"end of text where it is looked for", long_text(3000, {{2048, u'\uFFFF'}, {1500, u'\uFFFF'}}), usual, 2048},
    };
    for (const auto& [name, text, line_endings, size] : cases) {
        const TextStream stream(std::make_unique<StringSource>(text));
        const textio::Field view = get_fixed_stream(stream, line_endings);
        EXPECT_EQ(view.size, size) << name;
        EXPECT_TRUE(view.view() == std::u16string_view(text).substr(0, view.size)) << name;
        EXPECT_EQ(get_fixed_stream(stream, line_endings).size, size) << name << ", again";
    }
}

TEST(FixedStream, CountsFromThePosition) {
    StringSource source(long_text(limit + 100, {{50, u'\n'}, {limit + 40, u'\n'}}));
    const TextStream stream(source);
    EXPECT_EQ(get_fixed_stream(stream, usual).size, 51U);
    stream.position += 51;
    const textio::Field view = get_fixed_stream(stream, usual);
    EXPECT_EQ(view.size, limit + 41 - 51);
    EXPECT_EQ(view.data, stream.position);
}

TEST(FixedStream, SurvivesASourceThatThrows) {
    StringSource source(u"abc", true);
    const TextStream stream(source);
    EXPECT_THROW((void)get_fixed_stream(stream, usual), std::runtime_error);
    EXPECT_TRUE(get_fixed_stream(stream, usual).view() == u"abc");
    EXPECT_EQ(get_fixed_stream(TextStream(std::unique_ptr<TextSource>()), usual).size, 0U);
}

} // namespace
