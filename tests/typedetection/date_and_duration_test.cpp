#include "textio/platform/is_datetime.hpp"
#include "typedetection/field_text.hpp"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

static std::vector<std::u16string> asked;

/// Stands in for a host's facility. The context, which the analyzer only hands on, says how.
bool zentor::io::text::typeconversion::is_datetime(const textio::Field& text, const std::u16string& context) {
    constexpr std::array<std::u16string_view, 3> known{u"2020-01-02", u"01-Feb-2020 10:11", u"10:11:12.5"};
    asked.emplace_back(text.view());
    if (context == u"throws" || (context == u"throws first" && asked.size() == 1)) {
        throw 0;
    }
    return context == u"accepts all" ||
           (context != u"accepts none" && std::find(known.begin(), known.end(), text.view()) != known.end());
}

namespace zentor::io::text::typedetection {
namespace {

using enum FieldClass;

TEST(DateAndDuration, AsksTheDateFacilityOnlyWhatItMust) {
    struct Case {
        std::u16string text;
        FieldClass expected;
        const char16_t* facility;
        std::vector<std::u16string> questions; ///< what it is asked, in this order
        char16_t decimal_separator = u'.';
    };
    const Case cases[] = {
        {u"10:11:12.5", duration, u"accepts three", {}},
        {u"0x1F", hex_number, u"accepts all", {}},
        {u"words and more", text, u"accepts all", {}},
        {u"NaT", datetime, u"throws", {}},
        {u"2020-01-02", date, u"accepts three", {u"2020-01-02"}},
        {u"01-Feb-2020 10:11", datetime, u"accepts three", {u"01-Feb-2020 10:11"}},
        {u"word:1", datetime, u"accepts all", {u"word:1"}},
        {u"2020-01-02 10:11:12", datetime, u"accepts three", {u"2020-01-02 10:11:12", u"2020-01-02"}},
        {u"10:11:12  2020-01-02", datetime, u"accepts three", {u"10:11:12  2020-01-02", u"2020-01-02"}},
        {u"2020-01-02 10:11:12", datetime, u"throws first", {u"2020-01-02 10:11:12", u"2020-01-02"}},
        {u"2020-01-02 10:11", text, u"accepts three", {u"2020-01-02 10:11"}},
        {u"2020-01-02\t10:11:12", text, u"accepts three", {u"2020-01-02\t10:11:12"}},
        {u"2020-01-02 10:11:12 x", text, u"accepts three", {u"2020-01-02 10:11:12 x"}},
        {u"1:2:3 4:5:6", text, u"accepts none", {u"1:2:3 4:5:6", u"4:5:6", u"1:2:3"}},
        {u"1:2:3 4:5:6", text, u"throws", {u"1:2:3 4:5:6", u"4:5:6", u"1:2:3"}},
        {u"2020-01-02 1:2:3.5", datetime, u"accepts three", {u"2020-01-02 1:2:3.5", u"2020-01-02"}, u','},
        {u"1:2:3.5", text, u"accepts none", {u"1:2:3.5", u""}, u','},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(test::shown(c.text) + " where the facility " + test::shown(c.facility));
        asked.clear();
        const TypeAnalyzer<false> analyzer(
            TypeAnalyzerOptions{.decimal_separator = c.decimal_separator, .datetime_context = c.facility});
        EXPECT_EQ(analyzer.classify(textio::Field(c.text)), c.expected);
        EXPECT_EQ(asked, c.questions);
    }
}

} // namespace
} // namespace zentor::io::text::typedetection
