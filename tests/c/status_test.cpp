// What every call of the C interface promises: versions, errors, and that plain C can make it.
#include "c/handles.hpp"
#include "textio/version.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>

extern "C" const char* what_plain_c_finds_wrong();

namespace {

using test::hints_of;
using test::layout_of;

TEST(CInterface, WorksFromC) {
    EXPECT_EQ(what_plain_c_finds_wrong(), nullptr);
    EXPECT_STREQ(textio_version(), TEXTIO_VERSION_STRING);
}

TEST(CErrors, AreCutAtACharacter) {
    const std::string name = "x" + std::string(200, '-') + "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4" + std::string(100, '+');
    for (std::size_t cut = 0; cut < 3; ++cut) {
        ASSERT_EQ(textio_hints_set(hints_of({}).get(), name.substr(0, 1).append(cut, '-').append(name, 1).c_str(), ""),
                  TEXTIO_UNKNOWN_NAME);
        const std::string_view said = textio_last_error();
        EXPECT_LT(said.size(), 256U);
        EXPECT_TRUE(said.ends_with('+') || said.ends_with('\xA4')) << said;
    }
}

TEST(CErrors, BelongToTheirThread) {
#if defined(__EMSCRIPTEN__) && !defined(__EMSCRIPTEN_PTHREADS__)
    GTEST_SKIP() << "this build has no threads";
#else
    textio_hints_set(hints_of({}).get(), "delim", "");
    const std::string before = textio_last_error();
    std::thread([] {
        EXPECT_STREQ(textio_last_error(), "");
        textio_hints_set(nullptr, nullptr, nullptr);
        EXPECT_STRNE(textio_last_error(), "");
    }).join();
    layout_of("a,b\n");
    EXPECT_EQ(textio_last_error(), before) << "neither another thread nor what succeeds says anything";
#endif
}

} // namespace
