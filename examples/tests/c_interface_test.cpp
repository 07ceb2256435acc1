// The C interface: the table of what every language answers, and the same answers as the host's.
#include "advice_json.hpp"
#include "advised.hpp"
#include "bytes.hpp"
#include "running.hpp"
#include "textio/advice.hpp"
#include "textio/c.h"
#include "textio/names.hpp"
#include "textio/reading.hpp"
#include "unicode.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace detect_layout;
using Json = nlohmann::json;

struct Free {
    void operator()(textio_hints* hints) const { textio_hints_free(hints); }
    void operator()(textio_layout* layout) const { textio_layout_free(layout); }
    void operator()(textio_reader* reader) const { textio_reader_free(reader); }
};
template <class Handle>
using Owned = std::unique_ptr<Handle, Free>;

Json cases() {
    std::ifstream file(EXAMPLE_DATA "/../../bindings/cases.json");
    return Json::parse(file);
}

/// Sets or adds every hint. Gives the first status that is not OK.
textio_status say(textio_hints* hints, const Json& values) {
    textio_status status = TEXTIO_OK;
    const auto text = [](const Json& value) { return value.is_string() ? value.get<std::string>() : value.dump(); };
    for (const auto& [name, value] : values.items()) {
        for (const Json& one : value.is_array() ? value : Json::array()) {
            status = status == TEXTIO_OK ? textio_hints_add(hints, name.c_str(), text(one).c_str()) : status;
        }
        if (!value.is_array() && status == TEXTIO_OK) {
            status = textio_hints_set(hints, name.c_str(), text(value).c_str());
        }
    }
    return status;
}

textio_status detect(const std::string& text, const Json& hint_values, Owned<textio_layout>& layout) {
    const Owned<textio_hints> hints(textio_hints_new());
    textio_layout* found = nullptr;
    textio_status status = say(hints.get(), hint_values);
    status = status == TEXTIO_OK ? textio_detect_utf8(text.data(), text.size(), hints.get(), &found) : status;
    layout.reset(found);
    return status;
}

/// The whole answer, with the lists of what the columns are as the table of cases has them.
Json answer_of(const textio_layout* layout) {
    Json answer = Json::parse(textio_layout_json(layout, nullptr));
    for (const auto& [list, member] :
         {std::pair("names", "name"), std::pair("classes", "class"), std::pair("missing", "missing")}) {
        answer[list] = Json::array();
        for (const Json& column : answer["columns"]) {
            answer[list].push_back(column[member]);
        }
    }
    return answer;
}

Json text_or_null(const char* text) {
    return text == nullptr ? Json() : Json(text);
}

/// The same answer put together from the functions for its parts.
Json answer_in_parts(const textio_layout* layout) {
    const size_t names_line = textio_layout_names_line(layout, 0);
    size_t width_count = 0;
    const size_t* const widths = textio_layout_widths(layout, 0, &width_count);
    Json answer{{"kind", textio_layout_kind(layout, 0)},
                {"delimiter", text_or_null(textio_layout_delimiter(layout, 0, nullptr))},
                {"widths", std::vector<size_t>(widths, widths + width_count)},
                {"names_line", names_line == TEXTIO_NO_LINE ? Json() : Json(names_line)},
                {"first_data_line", textio_layout_first_data_line(layout, 0)},
                {"quote", text_or_null(textio_layout_quote(layout, 0, nullptr))},
                {"comment", text_or_null(textio_layout_comment(layout, 0, nullptr))},
                {"comment_end", text_or_null(textio_layout_comment_end(layout, 0, nullptr))},
                {"decimal", text_or_null(textio_layout_decimal(layout, 0, nullptr))},
                {"thousands", text_or_null(textio_layout_thousands(layout, 0, nullptr))},
                {"is_table", textio_layout_is_table(layout) == 1},
                {"rows", textio_layout_data_rows(layout)},
                {"names", Json::array()},
                {"classes", Json::array()},
                {"missing", Json::array()}};
    for (size_t column = 0; column < textio_layout_columns(layout, 0); ++column) {
        answer["names"].push_back(textio_layout_column_name(layout, 0, column, nullptr));
        answer["classes"].push_back(textio_layout_column_class(layout, 0, column));
        answer["missing"].push_back(textio_layout_column_missing(layout, 0, column));
    }
    return answer;
}

Json records_of(const textio_layout* layout, const std::string& text) {
    textio_reader* made = nullptr;
    EXPECT_EQ(textio_reader_utf8(layout, 0, text.data(), text.size(), &made), TEXTIO_OK);
    const Owned<textio_reader> reader(made);
    Json records = Json::array();
    for (int has_record = 0; textio_reader_next(made, &has_record) == TEXTIO_OK && has_record == 1;) {
        Json record = Json::array();
        for (size_t field = 0; field < textio_reader_fields(made); ++field) {
            record.push_back(textio_reader_field_utf8(made, field, nullptr));
        }
        records.push_back(std::move(record));
    }
    return records;
}

TEST(CasesOfAllLanguages, hold_in_c) {
    const Json all = cases();
    ASSERT_GE(all["texts"].size(), 15U);
    for (const Json& test : all["texts"]) {
        const std::string name = test["name"];
        Owned<textio_layout> layout;
        ASSERT_EQ(detect(test["text"], test["hints"], layout), TEXTIO_OK) << name << textio_last_error();
        const Json whole = answer_of(layout.get());
        for (const auto& [member, expected] : test["expected"].items()) {
            EXPECT_EQ(whole[member], expected) << name << ": " << member;
        }
        EXPECT_EQ(answer_in_parts(layout.get()), test["expected"]) << name;
        EXPECT_EQ(records_of(layout.get(), test["text"]), test["records"]) << name;
    }
}

TEST(CasesOfAllLanguages, are_refused_in_c) {
    const Json all = cases();
    ASSERT_GE(all["faults"].size(), 9U);
    for (const Json& test : all["faults"]) {
        const textio_status expected = test["status"] == "unknown_name" ? TEXTIO_UNKNOWN_NAME : TEXTIO_BAD_VALUE;
        Owned<textio_layout> layout;
        EXPECT_EQ(detect("a,b\n", test["hints"], layout), expected) << test;
        EXPECT_NE(std::string(textio_last_error()).find(test["says"]), std::string::npos) << test << textio_last_error();
    }
}

/// What nobody says anything about can be asked in C++ without a translation of the hints.
TEST(CasesOfAllLanguages, hold_in_cpp) {
    std::size_t asked = 0;
    const Json all = cases();
    for (const Json& test : all["texts"]) {
        if (!test["hints"].empty()) {
            continue;
        }
        ++asked;
        const std::string name = test["name"];
        const std::u16string text = to_utf16(test["text"].get<std::string>());
        const Json& expected = test["expected"];
        const auto advice = textio::advice::advise(textio::Field(text), 250);
        const auto& best = advice.proposals.front();
        EXPECT_EQ(textio::name_of(best.strategy->mode()), expected["kind"]) << name;
        EXPECT_EQ(best.names_line == textio::advice::no_line ? Json() : Json(best.names_line), expected["names_line"]) << name;
        EXPECT_EQ(best.first_data_line, expected["first_data_line"]) << name;
        EXPECT_EQ(advice.is_table, expected["is_table"]) << name;
        Json names = Json::array();
        Json classes = Json::array();
        for (const auto& column : best.columns) {
            names.push_back(to_utf8(column_name(column, best.strategy->options().quote)));
            classes.push_back(textio::name_of(column.type));
        }
        EXPECT_EQ(names, expected["names"]) << name;
        EXPECT_EQ(classes, expected["classes"]) << name;
        Json records = Json::array();
        std::u16string buffer;
        textio::reading::Reader reader(best, textio::Field(text));
        while (reader.next()) {
            Json& record = records.emplace_back(Json::array());
            for (const textio::Field& field : reader.fields()) {
                record.push_back(to_utf8(textio::reading::cell_value(field, reader.options(), buffer)));
            }
        }
        EXPECT_EQ(records, test["records"]) << name;
    }
    EXPECT_GE(asked, 7U);
}

TEST(ProgramInC, prints_a_table) {
    const Outcome table = run_script(PROGRAMS "/table_in_c stock.txt delimiter='|' rows=5 | head -n 3");
    EXPECT_EQ(table.errors, "");
    EXPECT_EQ(table.output.find("# delimited by '|', data from line 1: 5 of 5 rows have 5 fields"), 0U) << table.output;
    EXPECT_NE(table.output.find("\n40021\tCable tie, black\t477\tD16-3\t0.36\n"), std::string::npos) << table.output;
    const Outcome refused = run_script(PROGRAMS "/table_in_c stock.txt quote=ab");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.errors, "quote: 'ab' is more than one UTF-16 code unit\n");
    EXPECT_EQ(run_script(PROGRAMS "/table_in_c no_such_file").status, 1);
}

/// To the last figure, of every proposal.
TEST(ExampleFilesInC, have_the_host_s_answers) {
    std::size_t compared = 0;
    for (const auto& file : std::filesystem::directory_iterator(EXAMPLE_DATA)) {
        if (file.path().filename() == "README.md") {
            continue;
        }
        const auto advised = advise(file.path().string(), open_bytes(file.path().string()), Settings{});
        const Json host = Json::parse(to_json(advised, std::nullopt));
        const textio::Field& text = advised.input->text();
        textio_layout* found = nullptr;
        ASSERT_EQ(textio_detect_utf16(text.data, text.size, nullptr, &found), TEXTIO_OK);
        const Owned<textio_layout> layout(found);
        const Json answer = Json::parse(textio_layout_json(found, nullptr));
        for (const char* const member :
             {"kind", "header_lines", "num_variables", "names_line", "first_data_line", "quote", "comment", "comment_end",
              "decimal", "thousands", "columns", "is_table", "confidence", "rows"}) {
            EXPECT_EQ(answer[member], host[member]) << file << ": " << member;
        }
        ASSERT_EQ(answer["proposals"].size(), host["proposals"].size()) << file;
        for (std::size_t i = 0; i < host["proposals"].size(); ++i) {
            for (const char* const member : {"kind", "header_lines", "num_variables", "names_line", "first_data_line",
                                             "regular_rows", "rows", "score", "terms"}) {
                EXPECT_EQ(answer["proposals"][i][member], host["proposals"][i][member]) << file << i << member;
            }
        }
        ++compared;
    }
    EXPECT_GE(compared, 20U);
}

} // namespace
