#include "import_statements/abilities.hpp"
#include "import_statements/column_types.hpp"
#include "import_statements/from_proposal.hpp"
#include "import_statements/statement.hpp"
#include "import_statements/words.hpp"
#include "running.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace import_statements;
using detect_layout::run;
using detect_layout::run_script;

TEST(Words, are_written_as_each_language_has_them) {
    const std::string text = "a\"b'c\\d\ne\tf\x01ä";
    EXPECT_EQ(python_text(text), R"("a\"b'c\\d\ne\tf\x01ä")");
    EXPECT_EQ(r_text(text), R"("a\"b'c\\d\ne\tf\x01ä")");
    EXPECT_EQ(dot_command_text(text), R"("a\"b'c\\d\012e\011f\001ä")");
    EXPECT_EQ(sql_text("it's \"x\""), "'it''s \"x\"'");
    EXPECT_EQ(sql_name("it's \"x\""), "\"it's \"\"x\"\"\"");
    EXPECT_EQ(postgres_name("a\\b"), "\"a\\b\"");
    EXPECT_EQ(postgres_name("a\\b\n\"c\""), R"(U&"a\\b\000a""c""")");
    EXPECT_EQ(m_text("a\"b#(lf)\n#c"), R"("a""b#(#)(lf)#(000a)#c")");
    EXPECT_EQ(shell_command({"x", "a b", "it's", ""}), R"(x 'a b' 'it'\''s' '')");
    EXPECT_EQ(utf8_of(u"aä€\U0001F600\xD800"), "aä€\U0001F600\uFFFD");
}

std::vector<std::string> names_of(const std::vector<std::string>& names, std::size_t most_bytes) {
    Table table;
    for (const std::string& name : names) {
        table.columns.push_back({});
        table.columns.back().name = name;
    }
    return column_names(table, most_bytes);
}

TEST(Names, are_there_and_differ) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(names_of({"", "a", "A", "a", "column_1"}, 99), Names({"column_1", "a", "A_2", "a_3", "column_1_2"}));
    EXPECT_EQ(names_of({"größer", "größte"}, 5), Names({"grö", "gr_2"})); // ö and ß have two bytes
    EXPECT_EQ(names_of({"größer", "größte"}, 6), Names({"größ", "grö_2"}));
    Table table;
    for (const auto& [file, name] : std::vector<std::pair<std::string, std::string>>{
             {"a/b c's.tar.gz", "b_c_s"}, {"C:\\x\\größe.csv", "größe"}, {".csv", "_csv"}, {"x/", "data"}}) {
        table.file = file;
        EXPECT_EQ(table_name(table), name);
    }
}

TEST(Columns, have_a_type_that_all_values_are_of) {
    struct Case {
        const char* name;
        std::vector<std::u16string> values;
        Type type;
        const char* format = nullptr;
        NumberMarks marks{};
    };
    for (const Case& test : std::vector<Case>{
             {"whole", {u"0", u"-12", u"123456789012345"}, Type::integer},
             {"too long for a double", {u"1234567890123456"}, Type::text},
             {"zeros in front", {u"12", u"012"}, Type::text},
             {"a point", {u"1", u"-0.50"}, Type::number},
             {"an exponent", {u"1e5", u"1.25E-10"}, Type::number},
             {"no digit behind the point", {u"1."}, Type::text},
             {"no exponent", {u"1e"}, Type::text},
             {"one word", {u"1", u"2", u"x"}, Type::text},
             {"a comma that is none", {u"1,5"}, Type::text},
             {"a decimal comma", {u"1,5", u"2"}, Type::number, nullptr, {u',', 0}},
             {"thousands", {u"1.234.567,5", u"12"}, Type::number, nullptr, {u',', u'.'}},
             {"a short group", {u"1.23"}, Type::text, nullptr, {u',', u'.'}},
             {"a long first group", {u"1234.567"}, Type::text, nullptr, {u',', u'.'}},
             {"stand-ins among numbers", {u"1", u"NA", u"-"}, Type::integer},
             {"nothing but stand-ins", {u"NA"}, Type::text},
             {"ISO", {u"2024-02-29", u"2023-12-31"}, Type::date, "%Y-%m-%d"},
             {"no such day", {u"2023-02-29"}, Type::text},
             {"German", {u"31.12.2023"}, Type::date, "%d.%m.%Y"},
             {"day or month", {u"01/02/2023", u"12/12/2023"}, Type::text},
             {"day first, as one value tells", {u"01/02/2023", u"13/12/2023"}, Type::date, "%d/%m/%Y"},
             {"month first", {u"01/02/2023", u"12/13/2023"}, Type::date, "%m/%d/%Y"},
             {"two ways", {u"2023-01-02", u"02.01.2023"}, Type::text},
             {"with a time", {u"2023-01-02 23:59:59"}, Type::date_time, "%Y-%m-%d %H:%M:%S"},
             {"no such hour", {u"2023-01-02 24:00:00"}, Type::text},
             {"in UTC", {u"2023-01-02T03:04:05Z"}, Type::date_time, "%Y-%m-%dT%H:%M:%SZ"},
             {"before some calendars", {u"1500-01-01"}, Type::text},
         }) {
        ColumnJudge judge(test.marks);
        for (const std::u16string& value : test.values) {
            judge.add(value);
        }
        Column column;
        judge.tell(column);
        EXPECT_EQ(column.type, test.type) << test.name;
        EXPECT_STREQ(column.format == nullptr ? nullptr : column.format->strptime, test.format) << test.name;
    }
}

Table table_in(const std::u16string& text, const textio::advice::Settings& settings = {}) {
    const auto advice = textio::advice::advise(textio::Field(text), 250, settings);
    return table_from(advice.proposals.front(), textio::Field(text));
}

std::u16string numbered(const std::u16string& line, int count = 12) {
    std::u16string lines;
    for (int i = 0; i < count; ++i) {
        for (const char16_t unit : line) {
            lines += unit == u'@' ? std::u16string{static_cast<char16_t>(u'a' + i)} : std::u16string{unit};
        }
    }
    return lines;
}

/// The tools that have to have the file rewritten, in the order of the list.
std::string tools_that_stumble(const Table& table) {
    std::string names;
    for (const Tool& tool : tools()) {
        if (!statement_for(tool.name, table).obstacles.empty()) {
            names.append(names.empty() ? "" : " ").append(tool.name);
        }
    }
    return names;
}

TEST(Obstacles, are_found_in_the_text) {
    struct Case {
        const char* name;
        std::u16string text;
        std::string stumbling;
    };
    const std::u16string plain = u"id,name\n" + numbered(u"@,x@\n");
    for (const Case& test : std::vector<Case>{
             {"nothing", plain, ""},
             {"quotes with breaks", plain + u"z,\"a \"\"b\"\"\nc\"\n", ""},
             {"a blank line", plain + u"\n" + numbered(u"@,y@\n"), "duckdb excel polars postgres sqlite"},
             {"a short row", plain + u"z\n", "postgres"},
             {"a long row", plain + u"z,y,x\n", "postgres r"},
             {"a quote inside", plain + u"z,5\"\n", "data.table duckdb excel polars postgres r spark"},
             {"blanks around", plain + u"z, y \n", "duckdb excel pandas polars postgres python-csv sqlite"},
             {"lone returns", u"id,name\r" + numbered(u"@,x@\r"), "data.table duckdb excel polars postgres r spark sqlite"},
             {"endings of two kinds", u"Report\n\nid,name\r\n" + numbered(u"@,x@\r\n"), "duckdb postgres spark"},
             {"an open quote above", u"7\" wide\nid,name\n" + numbered(u"@,x@\n"),
              "duckdb excel pandas polars postgres r spark sqlite"},
             {"lines above", u"Report\nid,name\n" + numbered(u"@,x@\n"), "spark"},
             {"a comment", plain + u"# c\n" + numbered(u"@,y@\n"), "data.table excel postgres sqlite"},
         }) {
        Table table = table_in(test.text);
        ASSERT_EQ(table.columns.size(), std::string_view(test.name) == "a long row" ? 3U : 2U) << test.name;
        EXPECT_EQ(tools_that_stumble(table), test.stumbling) << test.name;
    }
}

TEST(Statement, reads_the_output_of_convert_where_the_tool_cannot_be_told) {
    Table table = table_in(u"a;b\n" + numbered(u"@;1.234,5\n"));
    table.file = "x y.txt";
    table.convert = {"detect_layout", "convert", "x y.txt", "--decimal", ","};
    const Statement statement = statement_for("sqlite", table);
    EXPECT_EQ(statement.obstacles, std::vector<std::string>({"thousands separators"}));
    EXPECT_EQ(statement.text, R"(-- SQLite cannot be told of this file:
--   thousands separators
-- So detect_layout rewrites it.
CREATE TABLE "x_y" (
  "a" TEXT,
  "b" REAL
);
.mode csv
.separator "," "\n"
.import --skip 1 "|detect_layout convert 'x y.txt' --decimal ," "x_y"
)");
    EXPECT_THROW((void)statement_for("abacus", table), std::invalid_argument);
}

// No test can run these two.
TEST(Statement, is_complete_for_excel_and_spark) {
    Table table = table_in(u"Beleg;Datum;\"Netto \"\"x\"\"\"\n" + numbered(u"R@;18.12.2023;3,5\n", 6) + u"Rx;NA;1,5\n" +
                           numbered(u"S@;28.02.2023;2\n", 6));
    table.file = "b.csv";
    table.encoding = "windows-1252";
    EXPECT_EQ(statement_for("excel", table).text, R"(let
    Source = Csv.Document(File.Contents("b.csv"), [Delimiter = ";", Columns = 3, Encoding = 1252, QuoteStyle = QuoteStyle.Csv]),
    Data = Table.Skip(Source, 1),
    Named = Table.RenameColumns(Data, {{"Column1", "Beleg"}, {"Column2", "Datum"}, {"Column3", "Netto ""x"""}}),
    Present1 = Table.ReplaceValue(Named, "NA", null, Replacer.ReplaceValue, {"Beleg", "Datum", "Netto ""x"""}),
    Typed1 = Table.TransformColumnTypes(Present1, {{"Beleg", type text}, {"Datum", type date}, {"Netto ""x""", type number}}, "de-DE")
in
    Typed1
)");
    table.decimal = ".";
    EXPECT_EQ(statement_for("spark", table).text, R"(from pyspark.sql.functions import to_date, to_timestamp

data = spark.read.csv(
    "b.csv",
    schema="`Beleg` STRING, `Datum` STRING, `Netto \"x\"` DOUBLE",
    sep=";",
    quote="\"",
    escape="\"",
    header=True,
    enforceSchema=True,
    encoding="windows-1252",
    multiLine=False,
    nullValue="NA",
)
data = data.withColumn("Datum", to_date(data["`Datum`"], "dd.MM.yyyy"))
)");
}

TEST(Program, refuses_what_cannot_be_imported) {
    for (const auto& [arguments, errors] : std::vector<std::pair<std::string, std::string>>{
             {"import stock.txt", "for which tool? (--for; --help lists them)"},
             {"import --for pandas", "which file? (one that the tool can open by its name)"},
             {"import --for pandas - <stock.txt", "which file? (one that the tool can open by its name)"},
             {"import --for pandas stock.txt orbit.dat", "which file? (one that the tool can open by its name)"},
             {"import --for pandas empty.txt", "empty.txt: has no rows to import"},
             {"import --for pandas no_such_file.csv", "no such file"},
         }) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.output, "") << arguments;
        EXPECT_NE(result.errors.find(errors), std::string::npos) << arguments << ": " << result.errors;
    }
    EXPECT_EQ(run("import --for abacus stock.txt").status, 2);
    for (const Tool& tool : tools()) {
        EXPECT_NE(run("import --help").output.find("  " + std::string(tool.name) + " "), std::string::npos);
    }
}

TEST(Program, tells_the_tool_what_the_user_knows) {
    const auto hinted = run("import --comment '/*' --for=duckdb --comment-end '*/' wind_tunnel.txt --missing ok").output;
    EXPECT_NE(hinted.find("detect_layout convert --comment '/*' --comment-end '*/' wind_tunnel.txt --missing ok |"),
              std::string::npos)
        << hinted;
    EXPECT_NE(hinted.find("nullstr = ['', 'ok']"), std::string::npos) << hinted;
    const auto marked = run_script("printf '\\357\\273\\277a,b\\n1,2\\n3,4\\n' | gzip >" + detect_layout::test_files() +
                                   ".gz; $program import --for python-csv --names-line 1 " + detect_layout::test_files() + ".gz");
    EXPECT_NE(marked.output.find("gzip.open("), std::string::npos) << marked.output << marked.errors;
    EXPECT_NE(marked.output.find("encoding=\"utf-8-sig\""), std::string::npos) << marked.output;
}

} // namespace
