// The example files, about which nothing is told.
#include "advice/advising.hpp"
#include "advice/example_text.hpp"

namespace {

const std::pair<const char*, const char*> answers[] = {
    {"broken_bytes.csv", "by ','; 0>1; plant text, height number, soil text"},
    {"cities_utf16.txt", "by '\\t'; 0>1; \\u0413\\u043E\\u0440\\u043E\\u0434 text, \\u0416\\u0438\\u0442\\u0435\\u043B\\u0438 "
                         "number, \\u041E\\u0441\\u043D\\u043E\\u0432\\u0430\\u043D number"},
    {"empty.txt", "lines; >0; nothing"},
    {"gate_log.txt", "aligned, skip, drop; >0; duration, text, text, number"},
    {"inspection_dates.txt", "lines; >0; date"},
    {"letter.txt", "lines; >0; text"},
    {"meter_readings.csv", "by ','; 0>1; month text, heating number, power number, water number"},
    {"orbit.dat", "aligned, comment #, skip, drop; 1>2; t number, x number, y number, vx number, vy number"},
    {"pool_tickets.csv", "by ','; 1>2; date date, pool text, adults number, children number, takings number"},
    {"race_blank_lines.csv", "by ';'; 3>4; Runner text, Club text -1, Time short duration, Rank number"},
    {"rechnungen.csv", "by ';'; 0>1; Beleg text, Datum date, Kunde text, Netto number, Steuer number, Brutto number"},
    {"reviews.csv", "by ','; 0>1; id number, stars number, title text, review text, helpful number"},
    {"sequencing.tsv", "by '\\t'; 0>1; sample text, organism text, tissue text, reads number, mapped number, note text -8"},
    {"spectrum.txt", "aligned, skip, drop; 3>4; nm number, dark number, raw number, corrected number"},
    {"staff_crlf.csv", "by ','; 0>1; Name text, Department text, Extension number, Room text"},
    {"stations.txt", "widths 8 23 9 6 6; >0; text, text, number, number, text -10"},
    {"stock.txt", "by '|'; >0; number, text, number, text, number"},
    {"switch_log.csv", "by ','; >0; datetime, text, text, number"},
    {"volunteers.txt", "lines; >0; text"},
    {"weather_comments.csv", "by ',', comment #; 2>3; station text, temp number, humidity number, pressure number"},
    {"wind_tunnel.txt", "by ';', comment /*; >3; number, number, number, text"},
    {"wohnungen_cp1252.csv", "by ';'; 0>1; Ort text, Stra\\u00DFe text, Fl\\u00E4che m\\u00B2 number, Preis \\u0080 text"},
};

TEST(AdviseOnExamples, GivesTheRightAnswers) {
    for (const auto& [file, answer] : answers) {
        const std::u16string text = test::example_text(file);
        EXPECT_EQ(test::shown(test::advice_on(text).proposals.front()), answer) << file;
    }
}

} // namespace
