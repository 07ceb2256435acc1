// The C interface: hints, answers, readers.
#include "c/handles.hpp"

#include "textio/names.hpp"
#include "textio/version.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <thread>

extern "C" const char* what_plain_c_finds_wrong();

namespace {

using test::hints_of;
using test::HintTexts;
using test::Layout;
using test::layout_of;
using test::Reader;
using test::reader_of;

constexpr std::string_view prices = "Stock\nitem;price\nbolt;0,12\nnut;0,08\npin;1,25\n";

TEST(CInterface, WorksFromC) {
    EXPECT_EQ(what_plain_c_finds_wrong(), nullptr);
    EXPECT_STREQ(textio_version(), TEXTIO_VERSION_STRING);
}

struct HintCase {
    const char* name;
    const char* value;
    textio_status status;
    const char* says = "";
};

TEST(CHints, AreCheckedOneByOne) {
    const HintCase cases[] = {
        {"rows", "0", TEXTIO_OK},
        {"rows", "18446744073709551616", TEXTIO_BAD_VALUE, "too large"},
        {"rows", "99999999999999999999999", TEXTIO_BAD_VALUE, "too large"},
        {"rows", "", TEXTIO_BAD_VALUE, "not a number"},
        {"rows", "12a", TEXTIO_BAD_VALUE, "not a number"},
        {"method", "rules", TEXTIO_OK},
        {"method", "Rules", TEXTIO_BAD_VALUE, "neither"},
        {"kind", "fixed_width", TEXTIO_OK},
        {"kind", "fixed", TEXTIO_BAD_VALUE, "'fixed' is none of"},
        {"delimiter", "", TEXTIO_BAD_VALUE, "empty"},
        {"delimiter", "::", TEXTIO_OK},
        {"delimiter", "\xC3", TEXTIO_BAD_VALUE, "not UTF-8"},
        {"quote", "", TEXTIO_OK},
        {"quote", "\xC2\xAB", TEXTIO_OK},
        {"quote", "\xF0\x9F\x90\x9D", TEXTIO_BAD_VALUE, "more than one"},
        {"decimal", "", TEXTIO_BAD_VALUE, "not a character"},
        {"widths", "10,8,6", TEXTIO_OK},
        {"widths", "", TEXTIO_OK},
        {"widths", "10,", TEXTIO_BAD_VALUE, "not a number"},
        {"widths", ",10", TEXTIO_BAD_VALUE, "not a number"},
        {"widths", "10;8", TEXTIO_BAD_VALUE, "not a number"},
        {"names_line", "none", TEXTIO_OK},
        {"first_data_line", "none", TEXTIO_BAD_VALUE, "not a number"},
        {"quote ", "'", TEXTIO_UNKNOWN_NAME, "'quote '"},
        {"", "", TEXTIO_UNKNOWN_NAME, "''"},
    };
    const test::Hints hints(textio_hints_new());
    for (const HintCase& test : cases) {
        EXPECT_EQ(textio_hints_set(hints.get(), test.name, test.value), test.status) << test.name << '=' << test.value;
        if (test.status != TEXTIO_OK) {
            EXPECT_NE(std::strstr(textio_last_error(), test.says), nullptr) << textio_last_error();
        }
    }
}

TEST(CHints, ThatAreRefusedChangeNothing) {
    const test::Hints hints = hints_of({{"delimiter", ":"}, {"widths", nullptr}});
    EXPECT_EQ(textio_hints_set(hints.get(), "delimiter", ""), TEXTIO_BAD_VALUE);
    EXPECT_EQ(textio_hints_add(hints.get(), "delimiter", ";"), TEXTIO_BAD_VALUE) << "it is no list";
    EXPECT_EQ(textio_hints_add(hints.get(), "widths", "x"), TEXTIO_BAD_VALUE);
    EXPECT_EQ(textio_hints_set(hints.get(), "delim", "x"), TEXTIO_UNKNOWN_NAME);
    const Layout layout = layout_of("1:2;3\n4:5;6\n", hints.get());
    ASSERT_NE(layout, nullptr) << textio_last_error();
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ":");
}

TEST(CHints, CanBeTakenBackByTheirNames) {
    const test::Hints hints(textio_hints_new());
    const std::string before = textio_layout_json(layout_of(prices, hints.get()).get(), nullptr);
    for (const auto& [name, value] : HintTexts{{"kind", "line"}, {"delimiter", ":"}, {"first_data_line", "3"}, {"rows", "1"}}) {
        ASSERT_EQ(textio_hints_set(hints.get(), name, value), TEXTIO_OK);
        EXPECT_NE(textio_layout_json(layout_of(prices, hints.get()).get(), nullptr), before) << name;
        ASSERT_EQ(textio_hints_set_sized(hints.get(), name, nullptr, 9), TEXTIO_OK);
    }
    std::size_t names = 0;
    for (; textio_hint_name(names) != nullptr; ++names) {
        EXPECT_EQ(textio_hints_set(hints.get(), textio_hint_name(names), nullptr), TEXTIO_OK) << textio_hint_name(names);
    }
    EXPECT_EQ(names, 14U);
    EXPECT_EQ(textio_layout_json(layout_of(prices, hints.get()).get(), nullptr), before);
}

TEST(CHints, OfListsGrow) {
    const test::Hints hints(textio_hints_new());
    for (const char* const width : {"2", "1", "2"}) {
        ASSERT_EQ(textio_hints_add(hints.get(), "widths", width), TEXTIO_OK);
    }
    const Layout layout = layout_of("aa1bb\ncc2dd\n", hints.get());
    size_t count = 0;
    const size_t* const widths = textio_layout_widths(layout.get(), 0, &count);
    ASSERT_EQ(count, 3U);
    EXPECT_EQ(std::vector(widths, widths + count), (std::vector<size_t>{2, 1, 2}));
}

TEST(CHints, CanHoldANull) {
    const std::string text("a\0b\n1\0002\n3\0004\n", 12);
    const test::Hints hints(textio_hints_new());
    ASSERT_EQ(textio_hints_set_sized(hints.get(), "delimiter", "\0", 1), TEXTIO_OK);
    const Layout layout = layout_of(text, hints.get());
    size_t length = 0;
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, &length), "");
    EXPECT_EQ(length, 1U);
    EXPECT_NE(std::strstr(textio_layout_json(layout.get(), nullptr), R"("delimiter":"\u0000")"), nullptr);
    EXPECT_EQ(test::shown_records(reader_of(layout, text).get()), "[1][2]/[3][4]/");
}

TEST(CHints, ThatContradictAreRefused) {
    const std::pair<HintTexts, const char*> cases[] = {
        {{{"delimiter", ","}, {"widths", "1,2"}}, "delimiter"},
        {{{"delimiter", ","}, {"kind", "space_aligned"}}, "delimiter"},
        {{{"widths", "1,2"}, {"kind", "delimited"}}, "widths"},
        {{{"comment_end", "*/"}}, "comment_end"},
        {{{"comment", ""}, {"comment_end", "*/"}}, "comment_end"},
        {{{"method", "rules"}, {"delimiter", ","}}, "delimiter"},
        {{{"method", "rules"}, {"names_line", "0"}}, "names_line"},
        {{{"method", "rules"}, {"kind", "line"}}, "kind"},
    };
    for (const auto& [texts, says] : cases) {
        textio_layout* layout = nullptr;
        EXPECT_EQ(textio_detect_utf8("a,b\n", 4, hints_of(texts).get(), &layout), TEXTIO_BAD_VALUE) << says;
        EXPECT_EQ(std::string_view(textio_last_error()).find(says), 0U) << textio_last_error();
        EXPECT_EQ(layout, nullptr);
    }
    for (const HintTexts& texts : {HintTexts{{"delimiter", ","}, {"kind", "delimited"}}, HintTexts{{"comment_end", ""}},
                                   HintTexts{{"method", "rules"}, {"kind", "fixed_width"}, {"names_line", nullptr}}}) {
        EXPECT_NE(layout_of("a,b\n1,2\n", hints_of(texts).get()), nullptr) << textio_last_error();
    }
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

TEST(CLayout, OutlivesTheText) {
    std::string text(prices);
    const Layout layout = layout_of(text);
    std::fill(text.begin(), text.end(), '#');
    EXPECT_STREQ(textio_layout_kind(layout.get(), 0), "delimited");
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ";");
    EXPECT_STREQ(textio_layout_decimal(layout.get(), 0, nullptr), ",");
    EXPECT_EQ(textio_layout_comment(layout.get(), 0, nullptr), nullptr);
    EXPECT_EQ(textio_layout_names_line(layout.get(), 0), 1U);
    EXPECT_EQ(textio_layout_first_data_line(layout.get(), 0), 2U);
    EXPECT_EQ(textio_layout_header_lines(layout.get(), 0), 2U);
    ASSERT_EQ(textio_layout_columns(layout.get(), 0), 2U);
    EXPECT_STREQ(textio_layout_column_name(layout.get(), 0, 1, nullptr), "price");
    EXPECT_STREQ(textio_layout_column_class(layout.get(), 0, 1), "number");
    EXPECT_EQ(textio_layout_column_values(layout.get(), 0, 1), 3U);
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), 5U);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), 4U);
    EXPECT_EQ(textio_layout_data_rows(layout.get()), 3U);
    EXPECT_EQ(textio_layout_is_table(layout.get()), 1);
    EXPECT_EQ(
        std::string_view(textio_layout_why(layout.get(), 0)).find("4 of 5 rows have 2 fields; 1 column holds numbers, 1 text"),
        0U)
        << textio_layout_why(layout.get(), 0);
}

TEST(CLayout, ScoresAreProductsOfTheirTerms) {
    const Layout layout = layout_of(prices);
    const size_t proposals = textio_layout_proposals(layout.get());
    ASSERT_GE(proposals, 2U);
    for (size_t i = 0; i < proposals; ++i) {
        double product = 1;
        for (size_t term = 0; term < textio_layout_terms(layout.get(), i); ++term) {
            EXPECT_STRNE(textio_layout_term_name(layout.get(), i, term), "");
            product *= textio_layout_term_value(layout.get(), i, term);
        }
        EXPECT_EQ(textio_layout_score(layout.get(), i), product);
    }
    EXPECT_GT(textio_layout_confidence(layout.get()), 1);
}

TEST(CLayout, RulesTellWhatTheyKnow) {
    const test::Hints hints = hints_of({{"method", "rules"}, {"decimal", ","}, {"missing", "1,25"}});
    const Layout layout = layout_of(prices, hints.get());
    ASSERT_NE(layout, nullptr) << textio_last_error();
    EXPECT_EQ(textio_layout_proposals(layout.get()), 1U);
    EXPECT_STREQ(textio_layout_delimiter(layout.get(), 0, nullptr), ";");
    EXPECT_EQ(textio_layout_header_lines(layout.get(), 0), 1U);
    EXPECT_EQ(textio_layout_names_line(layout.get(), 0), TEXTIO_NO_LINE);
    EXPECT_EQ(textio_layout_column_missing(layout.get(), 0, 1), 1U);
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), 5U);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), 4U);
    EXPECT_EQ(textio_layout_data_rows(layout.get()), 4U);
    EXPECT_EQ(textio_layout_terms(layout.get(), 0), 0U);
    EXPECT_EQ(textio_layout_confidence(layout.get()), 0);
    EXPECT_EQ(test::shown_records(reader_of(layout, prices).get()), "[item][price]/[bolt][0,12]/[nut][0,08]/[pin][1,25]/");
}

/// Delivers a text in pieces, and fails where it is told to.
struct Pieces {
    std::string_view rest;
    std::size_t piece;
    std::size_t failing = SIZE_MAX; ///< calls until one fails
    std::size_t delivered = 0;

    static size_t read(void* context, char* buffer, size_t size) {
        auto& self = *static_cast<Pieces*>(context);
        if (self.failing == 0) {
            self.failing = SIZE_MAX;
            return TEXTIO_READ_FAILED;
        }
        --self.failing;
        const size_t count = std::min({self.rest.size(), self.piece, size});
        std::copy_n(self.rest.begin(), count, buffer);
        self.rest.remove_prefix(count);
        self.delivered += count;
        return count;
    }
};

TEST(CDetection, IsTheSameForAllFormsOfAText) {
    const std::string text = "\xEF\xBB\xBFStra\xC3\x9F"
                             "e;Zahl\n\xF0\x9F\x90\x9D;1\n\xFF;22\nz;3\n";
    const std::u16string units = u"Straße;Zahl\n🐝;1\n\uFFFD;22\nz;3\n";
    const std::string expected = textio_layout_json(layout_of(text).get(), nullptr);
    textio_layout* layout = nullptr;
    ASSERT_EQ(textio_detect_utf16(units.data(), units.size(), nullptr, &layout), TEXTIO_OK);
    size_t length = 0;
    EXPECT_EQ(textio_layout_json(Layout(layout).get(), &length), expected);
    EXPECT_EQ(length, expected.size());
    for (const std::size_t piece : {1, 7, 1000}) {
        Pieces pieces{text, piece};
        ASSERT_EQ(textio_detect_source(Pieces::read, &pieces, nullptr, &layout), TEXTIO_OK);
        EXPECT_EQ(textio_layout_json(Layout(layout).get(), nullptr), expected);
    }
    Pieces failing{text, 5, 2};
    EXPECT_EQ(textio_detect_source(Pieces::read, &failing, nullptr, &layout), TEXTIO_SOURCE_FAILED);
    EXPECT_EQ(layout, nullptr);
}

TEST(CDetection, LooksAtWholeLinesOfALongText) {
    constexpr std::size_t limit = 4'194'304;
    std::string text;
    while (text.size() <= 2 * limit) {
        text += "12345678901;1\r\n";
    }
    const std::size_t seen = limit / 15;
    const test::Hints hints = hints_of({{"rows", "10000000"}});
    const Layout layout = layout_of(text, hints.get());
    EXPECT_EQ(textio_layout_rows(layout.get(), 0), seen);
    EXPECT_EQ(textio_layout_regular_rows(layout.get(), 0), seen);
    Pieces pieces{text, 1 << 20};
    textio_layout* found = nullptr;
    ASSERT_EQ(textio_detect_source(Pieces::read, &pieces, hints.get(), &found), TEXTIO_OK);
    EXPECT_STREQ(textio_layout_json(Layout(found).get(), nullptr), textio_layout_json(layout.get(), nullptr));
    EXPECT_EQ(pieces.delivered, limit + 1);
}

TEST(CReader, GivesTheSameFromAllFormsOfAText) {
    const std::string text = "a,b\n1,\"x \"\"y\"\" \xC3\xA4\"\n2, \"\xF0\x9F\x90\x9D\n\" \n";
    const std::u16string units = u"a,b\n1,\"x \"\"y\"\" ä\"\n2, \"🐝\n\" \n";
    const std::string expected = "[1][x \"y\" \xC3\xA4]/[2][\xF0\x9F\x90\x9D\n]/";
    const Layout layout = layout_of(text);
    EXPECT_EQ(test::shown_records(reader_of(layout, text).get()), expected);
    textio_reader* reader = nullptr;
    ASSERT_EQ(textio_reader_utf16(layout.get(), 0, units.data(), units.size(), &reader), TEXTIO_OK);
    EXPECT_EQ(test::shown_records(Reader(reader).get()), expected);
    for (std::size_t failing = 0; failing < 60; ++failing) {
        Pieces pieces{text, 1, failing};
        ASSERT_EQ(textio_reader_source(layout.get(), 0, Pieces::read, &pieces, &reader), TEXTIO_OK);
        const Reader owned(reader);
        std::string records = test::shown_records(reader);
        records += test::shown_records(reader); // on behind the failure, if there was one
        EXPECT_EQ(records, expected) << failing;
    }
}

TEST(CReader, KeepsTheValuesOfOneRecordApart) {
    const std::string_view text = "a,b\n\"1\"\"1\",\"2\"\"2\"\n";
    const Layout layout = layout_of(text);
    const Reader reader = reader_of(layout, text);
    int has_record = 0;
    ASSERT_EQ(textio_reader_next(reader.get(), &has_record), TEXTIO_OK);
    size_t lengths[2];
    const textio_unit* const first = textio_reader_field_utf16(reader.get(), 0, &lengths[0]);
    const textio_unit* const second = textio_reader_field_utf16(reader.get(), 1, &lengths[1]);
    const char* const bytes = textio_reader_field_utf8(reader.get(), 0, nullptr);
    textio_reader_field_utf8(reader.get(), 1, nullptr);
    EXPECT_EQ(std::u16string_view(first, lengths[0]), u"1\"1");
    EXPECT_EQ(std::u16string_view(second, lengths[1]), u"2\"2");
    EXPECT_STREQ(bytes, "1\"1");
    EXPECT_EQ(textio_reader_line(reader.get()), 1U);
}

struct PolicyCase {
    const char* policy;
    const char* records;
    const char* end;
    size_t irregular;
};

TEST(CReader, FollowsItsPolicy) {
    const std::string_view text = "a,b,c\n1,2,3\n4,5\n6,7,8\n9,,,0\n";
    const Layout layout = layout_of("a,b,c\n1,2,3\n6,7,8\n");
    const PolicyCase cases[] = {
        {"keep", "[1][2][3]/[4][5]/[6][7][8]/[9][][][0]/", "of_text", 2},
        {"pad", "[1][2][3]/[4][5][]/[6][7][8]/[9][][][0]/", "of_text", 2},
        {"skip", "[1][2][3]/[6][7][8]/", "of_text", 2},
        {"stop", "[1][2][3]/", "stopped", 1},
    };
    for (const PolicyCase& test : cases) {
        const Reader reader = reader_of(layout, text);
        EXPECT_EQ(textio_reader_policy(reader.get(), "guess"), TEXTIO_BAD_VALUE);
        ASSERT_EQ(textio_reader_policy(reader.get(), test.policy), TEXTIO_OK);
        EXPECT_STREQ(textio_reader_end(reader.get()), "not_yet");
        EXPECT_EQ(test::shown_records(reader.get()), test.records) << test.policy;
        EXPECT_STREQ(textio_reader_end(reader.get()), test.end) << test.policy;
        EXPECT_EQ(textio_reader_irregular(reader.get()), test.irregular) << test.policy;
        EXPECT_STREQ(textio_reader_fault(reader.get()), "none") << "there is no record";
        EXPECT_EQ(textio_reader_policy(reader.get(), "keep"), TEXTIO_BAD_ARGUMENT) << "it comes too late";
    }
    const Reader reader = reader_of(layout, text);
    int has_record = 0;
    for (const char* const fault : {"none", "too_few_fields", "none", "too_many_fields"}) {
        ASSERT_EQ(textio_reader_next(reader.get(), &has_record), TEXTIO_OK);
        EXPECT_STREQ(textio_reader_fault(reader.get()), fault);
    }
}

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

} // namespace
