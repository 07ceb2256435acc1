#include "advice_words.hpp"
#include "advised.hpp"
#include "bytes.hpp"
#include "command_line.hpp"
#include "detection.hpp"
#include "explanation.hpp"
#include "layout_names.hpp"
#include "unicode.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;

struct Case {
    std::string file;
    std::vector<const char*> known; ///< options for the host
    std::string layout;
    std::size_t header_lines;
    std::size_t num_variables;
    std::string character_set = "UTF-8";
    std::size_t undecodable = 0;
};

void PrintTo(const Case& test, std::ostream* out) {
    *out << test.file;
}

std::vector<Case> cases() {
    return {
        {"broken_bytes.csv", {}, "delimited by comma", 0, 3, "UTF-8", 1},
        {"cities_utf16.txt", {}, "delimited by tab", 0, 3, "UTF-16LE"},
        {"empty.txt", {}, "one field per line", 0, 1},
        {"gate_log.txt", {}, "delimited by space", 0, 4},
        {"inspection_dates.txt", {}, "delimited by comma", 0, 1},
        {"letter.txt", {}, "one field per line", 0, 1},
        {"meter_readings.csv", {}, "delimited by comma", 0, 4},
        {"orbit.dat", {}, "aligned with blanks", 2, 5},
        {"pool_tickets.csv", {}, "delimited by comma", 1, 5},
        {"race_blank_lines.csv", {}, "delimited by semicolon", 3, 4},
        {"rechnungen.csv", {"--decimal", ",", "--thousands", "."}, "delimited by semicolon", 0, 6},
        {"reviews.csv", {}, "delimited by comma", 0, 5},
        {"sequencing.tsv", {}, "delimited by tab", 0, 6},
        {"spectrum.txt", {}, "aligned with blanks", 3, 4},
        {"staff_crlf.csv", {}, "delimited by comma", 0, 4},
        {"stations.txt", {}, "fixed widths 7, 21, 9, 7, 8", 0, 5},
        {"stock.txt", {}, "delimited by vertical bar", 0, 5},
        {"switch_log.csv", {}, "delimited by comma", 0, 4},
        {"volunteers.txt", {}, "one field per line", 0, 1},
        {"weather_comments.csv", {}, "delimited by comma", 2, 4},
        {"wind_tunnel.txt", {"--comment", "/*", "--comment-end", "*/"}, "delimited by semicolon", 3, 4},
        {"wohnungen_cp1252.csv", {}, "delimited by semicolon", 0, 4, "windows-1252"},
    };
}

/// What has to be found without any options. Lines count from 1; 0 is none.
struct AdvisedCase {
    std::string file;
    std::string layout; ///< or its beginning
    std::size_t columns;
    std::size_t names_line;
    std::size_t first_data_line;
    std::string names;  ///< of the first two columns
    std::string values; ///< what these hold
};

constexpr auto no_table = "one field per line";

std::vector<AdvisedCase> advised_cases() {
    return {
        {"broken_bytes.csv", "delimited by comma", 3, 1, 2, "plant,height", "text,number"},
        {"cities_utf16.txt", "delimited by tab", 3, 1, 2, "Город,Жители", "text,number"},
        {"empty.txt", no_table, 1, 0, 1, "", ""},
        {"gate_log.txt", "aligned with blanks", 4, 0, 1, ",", "duration,text"},
        {"inspection_dates.txt", no_table, 1, 0, 1, "", ""},
        {"letter.txt", no_table, 1, 0, 1, "", ""},
        {"meter_readings.csv", "delimited by comma", 4, 1, 2, "month,heating", "text,number"},
        {"orbit.dat", "aligned with blanks", 5, 2, 3, "t,x", "number,number"},
        {"pool_tickets.csv", "delimited by comma", 5, 2, 3, "date,pool", "date,text"},
        {"race_blank_lines.csv", "delimited by semicolon", 4, 4, 5, "Runner,Club", "text,text, 1 of 12 missing"},
        {"rechnungen.csv", "delimited by semicolon", 6, 1, 2, "Beleg,Datum", "text,date"},
        {"reviews.csv", "delimited by comma", 5, 1, 2, "id,stars", "number,number"},
        {"sequencing.tsv", "delimited by tab", 6, 1, 2, "sample,organism", "text,text"},
        {"spectrum.txt", "aligned with blanks", 4, 4, 5, "nm,dark", "number,number"},
        {"staff_crlf.csv", "delimited by comma", 4, 1, 2, "Name,Department", "text,text"},
        {"stations.txt", "fixed widths", 4, 0, 1, ",", "text,text"},
        {"stock.txt", "delimited by vertical bar", 5, 0, 1, ",", "number,text"},
        {"switch_log.csv", "delimited by comma", 4, 0, 1, ",", "date and time,text"},
        {"volunteers.txt", no_table, 1, 0, 1, "", ""},
        {"weather_comments.csv", "delimited by comma", 4, 3, 4, "station,temp", "text,number"},
        {"wind_tunnel.txt", "delimited by semicolon", 4, 0, 4, ",", "number,number"},
        {"wohnungen_cp1252.csv", "delimited by semicolon", 4, 1, 2, "Ort,Straße", "text,text"},
    };
}

class ExampleFile : public testing::TestWithParam<Case> {};

TEST_P(ExampleFile, gets_the_expected_answer) {
    const Case& test = GetParam();
    const std::string path = EXAMPLE_DATA "/" + test.file;
    std::vector<const char*> arguments{"detect_layout"};
    arguments.insert(arguments.end(), test.known.begin(), test.known.end());
    arguments.push_back(path.c_str());
    const auto settings = read_command_line(static_cast<int>(arguments.size()), arguments.data());
    const Detection found = detect(path, open_bytes(path), settings);
    EXPECT_EQ(layout_phrase(*found.layout), test.layout);
    EXPECT_EQ(found.layout->header_lines(), test.header_lines);
    EXPECT_EQ(found.layout->num_variables(), test.num_variables);
    EXPECT_EQ(found.input->character_set().name, test.character_set);
    EXPECT_EQ(found.input->undecodable(), test.undecodable);

    // The explanation takes the decision anew, and must come to the same end.
    const auto candidates = explain(found.input->text(), settings).candidates;
    const auto chosen =
        std::find_if(candidates.begin(), candidates.end(), [](const auto& each) { return each.verdict == "chosen"; });
    EXPECT_EQ(chosen == candidates.end() ? "delimited by comma" : chosen->layout, test.layout);
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFile, testing::ValuesIn(cases()), [](const auto& test) {
    std::string name = test.param.file;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
});

TEST(ExampleFiles, are_understood_without_options) {
    for (const AdvisedCase& test : advised_cases()) {
        SCOPED_TRACE(test.file);
        const std::string path = EXAMPLE_DATA "/" + test.file;
        const Advised advised = advise(path, open_bytes(path), Settings());
        const auto& best = advised.best();
        EXPECT_TRUE(layout_phrase(*best.strategy).starts_with(test.layout)) << layout_phrase(*best.strategy);
        EXPECT_EQ(advised.advice.is_table, test.layout != no_table);
        EXPECT_EQ(best.names_line + 1, test.names_line); // no line + 1 is 0
        EXPECT_EQ(best.first_data_line + 1, test.first_data_line);
        // The table at fixed positions is right as far as its first columns go.
        EXPECT_TRUE(best.columns.size() == test.columns || test.layout == "fixed widths") << best.columns.size();
        if (advised.advice.is_table && best.columns.size() > 1) {
            EXPECT_EQ(to_utf8(best.columns[0].name) + "," + to_utf8(best.columns[1].name), test.names);
            const auto values = column_phrase(best.columns[0]) + "," + column_phrase(best.columns[1]);
            EXPECT_TRUE(values.starts_with(test.values)) << values;
        }
    }
}

TEST(ExampleFiles, are_all_tested) {
    std::set<std::string> by_rules{"README.md"};
    std::set<std::string> advised = by_rules;
    for (const Case& test : cases()) {
        by_rules.insert(test.file);
    }
    for (const AdvisedCase& test : advised_cases()) {
        advised.insert(test.file);
    }
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_DATA)) {
        const auto file = entry.path().filename().string();
        EXPECT_TRUE(by_rules.contains(file) && advised.contains(file)) << file;
    }
}

} // namespace
