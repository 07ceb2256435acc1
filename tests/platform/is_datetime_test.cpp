#include "textio/platform/is_datetime.hpp"
#include "typedetection/field_text.hpp"

#include <string_view>
#include <tuple>
#include <vector>

namespace zentor::io::text::typeconversion {
namespace {

TEST(IsDatetime, TellsDatesFromWhatLooksLikeThem) {
    const std::vector<std::tuple<const char*, bool, std::vector<std::u16string_view>>> cases{
        {"year first", true, {u"2020-01-02", u"2020/1/2", u"2020.01.02", u"99-12-31", u"2020-01", u"2020-W05", u"2020-W05-3"}},
        {"year first, with points", true, {u"2020.01.02 1:11", u"99.12.31"}},
        {"day first", true, {u"31/12/1999", u"31-12-99", u"1.2.2003", u"31.12.99", u"1/2/03"}},
        {"month first", true, {u"12/31/1999", u"12-31-99", u"12.31.1999", u"12.31.99"}},
        {"day and name", true, {u"31-Dec-99", u"2 January 2020", u"2. JAN 2020", u"02jan2020"}},
        {"name and day", true, {u"Jan. 2, 2020", u"Sept 3 2020", u"2020-Jan-02"}},
        {"month and year", true, {u"may 2020", u"Jun-14", u"2020 Feb"}},
        {"weekdays", true, {u"Thursday, January 2, 2020", u"thu 2020-01-02"}},
        {"times", true, {u"2020-01-02 10:11", u"2020-01-02T10:11:12.5", u"1/2/2023, 12:33"}},
        {"late times", true, {u"31.12.1999  23:59:60", u"2020-01-02 24:00"}},
        {"half days", true, {u"1/2/03 5:06 PM", u"Jan 2, 2020 12:06:07 p.m.", u"10:11am"}},
        {"offsets", true, {u"2020-01-02 10:11:12,125+01:00", u"2020-01-02T10:11 -0800", u"2-1-99 1:11 GMT+0100 (CET)"}},
        {"zones", true, {u"2020-01-02T10:11Z", u"2/1/2020 1:11:12.25 EST", u"2-1-99 1:11 CEST", u"2-1-99 1:11 NZDT"}},
        {"more zones", true, {u"2-1-99 1:11 AEST", u"2-1-99 1:11 JST", u"2-1-99 1:11 UTC", u"2-1-99 1:11 MSK"}},
        {"digits alone", true, {u"20200102T101112Z", u"20200102 10:11:12"}},
        {"stamps of logs", true, {u"10/Oct/2000:13:55:36 -0700", u"Apr  4 08:12:03", u"Apr  4 08:12:03 2016"}},
        {"stamps of programs and mails", true, {u"Mon Apr 04 08:12:03 PDT 2016", u"Tue, 15 Nov 1994 12:45:26 -0800 (PST)"}},
        {"leap days", true, {u"2020-02-29", u"2000-02-29", u"29.02.96", u"Feb 29 08:12:03"}},
        {"versions", false, {u"1.2.3", u"1.2.03", u"2020.1.2", u"10.1.2.300", u"10.11.12.13"}},
        {"fractions, scores, parts", false, {u"1/2", u"3-1", u"24/70", u"1:2/3", u"12-345-67", u"914-2", u"A9-16-49-20"}},
        {"addresses", false, {u"192.168.1.1", u"/players/165/153/23", u"781-853-9016", u"1705-4402"}},
        {"numbers and times", false, {u"2020", u"20200102", u"1.5", u"10:11", u"10:11:12"}},
        {"lone names", false, {u"Jan", u"May 5", u"dec_fk5", u"Mon 12", u"Oct-4", u"Mon"}},
        {"other words", false, {u"Month 3 2020", u"Ma 3 2020", u"Decline 3 2020"}},
        {"no such month or week", false, {u"2020/13/45", u"2020-00-01", u"0000-00-00", u"2020-W54"}},
        {"no such day", false, {u"2020-02-30", u"2019-02-29", u"1900-02-29", u"31 Apr 2020"}},
        {"no such time", false, {u"2020-01-02 24:01", u"2020-01-02 25:00", u"2020-01-02 10:60", u"2-1-99 1:11:61"}},
        {"no such offset or half", false, {u"2-1-99 1:11 +15:00", u"1/2/03 13:06 PM", u"1/2/03 0:06 AM"}},
        {"mixed separators", false, {u"1/2-2003", u"2020-01/02", u"2020.01-02"}},
        {"left over", false, {u"2020-01-02 ", u" 2020-01-02", u"2020-01-02T", u"2020-01-021"}},
        {"left over behind", false, {u"2020-01-02 10:11 OK", u"2020-01-02\xFFFF", u"1/2/03 1:11:12."}},
        {"other scripts, and nothing", false, {u"\u0662\u0660\u0662\u0660-01-02", u"2 \u017Fep 2020", u"", u"x", u"-"}},
    };
    for (const auto& [name, expected, texts] : cases) {
        for (const std::u16string_view text : texts) {
            EXPECT_EQ(is_datetime(textio::Field(text), u"any"), expected) << name << ": " << test::shown(text);
        }
    }
}

} // namespace
} // namespace zentor::io::text::typeconversion
