#include "c/utf8_out.hpp"

#include <gtest/gtest.h>

#include <string_view>
#include <utility>

namespace {

using textio::c::utf8_of;

TEST(Utf8Out, WritesEveryCharacterAndNoHalf) {
    const std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"", ""},
        {u"a\x7F", "a\x7F"},
        {u"\x80\x7FF", "\xC2\x80\xDF\xBF"},
        {u"\x800\xD7FF\xE000\xFFFF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"},
        {u"\xD800\xDC00\xDBFF\xDFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {u"\xD800", "\xEF\xBF\xBD"},
        {u"\xDC00\xD800"
         u"a",
         "\xEF\xBF\xBD\xEF\xBF\xBD"
         "a"},
        {u"\xD800\xD800\xDC00", "\xEF\xBF\xBD\xF0\x90\x80\x80"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(utf8_of(text), bytes);
    }
}

} // namespace
