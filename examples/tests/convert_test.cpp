#include "running.hpp"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace detect_layout;

/// `printf` of `text` into the program.
std::string convert_text(const std::string& text, const std::string& options = "") {
    return "printf '" + text + "' | $program convert - " + options;
}

struct Case {
    const char* what;
    std::string script;
    int status;
    std::string output;
    std::string errors{}; ///< without the name of the program
};

void expect(const std::vector<Case>& cases) {
    for (const Case& test : cases) {
        const Outcome result = run_script(test.script);
        std::string errors;
        std::istringstream lines(test.errors);
        for (std::string line; std::getline(lines, line);) {
            errors += "detect_layout: " + line + "\n";
        }
        EXPECT_EQ(result.status, test.status) << test.what;
        EXPECT_EQ(result.output, test.output) << test.what;
        EXPECT_EQ(result.errors, errors) << test.what;
    }
}

TEST(Convert, writes_plain_values) {
    const std::string german = R"(Tag;Ort;Preis\n02.03.2021;"Ulm; Nord";1.234,50\n14.11.2021;"sagt ""ja""";-0,08\n)"
                               R"(30.06.2022;;+7,5\n01.07.2022; Bonn ;k. A.\n)";
    expect({
        {"quotes, blanks, marks of numbers", convert_text(german), 0,
         "Tag,Ort,Preis\n02.03.2021,Ulm; Nord,1234.50\n14.11.2021,\"sagt \"\"ja\"\"\",-0.08\n30.06.2022,,+7.5\n"
         "01.07.2022,Bonn,k. A.\n"},
        {"decimals after the sample, the mark known",
         "{ echo 'a;b;c'; seq 300 | sed 's/.*/&;12;3,&/'; echo '1;1,5;2,5'; } | $program convert - | tail -1", 0, "1,1.5,2.5\n"},
        {"decimals after the sample, the mark told",
         "{ echo 'a;b'; seq 300 | sed 's/$/;12/'; echo '1;1,5'; } | $program convert - --decimal , | tail -1", 0, "1,1.5\n"},
        {"ISO dates, tabs", convert_text(german, "--iso-dates --to tsv"), 0,
         "Tag\tOrt\tPreis\n2021-03-02\tUlm; Nord\t1234.50\n2021-11-14\t\"sagt \"\"ja\"\"\"\t-0.08\n2022-06-30\t\t+7.5\n"
         "2022-07-01\tBonn\tk. A.\n"},
        {"a missing text", convert_text(german, "--missing 'k. A.' | tail -1"), 0, "01.07.2022,Bonn,\n"},
        {"JSON", convert_text(german, "--iso-dates --to jsonl --missing 'k. A.'"), 0,
         R"({"Tag":"2021-03-02","Ort":"Ulm; Nord","Preis":1234.50})"
         "\n"
         R"({"Tag":"2021-11-14","Ort":"sagt \"ja\"","Preis":-0.08})"
         "\n"
         R"({"Tag":"2022-06-30","Ort":null,"Preis":7.5})"
         "\n"
         R"({"Tag":"2022-07-01","Ort":"Bonn","Preis":null})"
         "\n"},
        {"commas inside quotes, as they were", convert_text(R"(a,b\n1,"x, y"\n2,"z"\n3,"say ""hi"""\n)"), 0,
         "a,b\n1,\"x, y\"\n2,z\n3,\"say \"\"hi\"\"\"\n"},
        {"another quote", convert_text(R"(a;b\n1;|x;y|\n2;|z, "z"|\n3;|x|\n)", "--quote '|' --delimiter ';'"), 0,
         "a,b\n1,x;y\n2,\"z, \"\"z\"\"\"\n3,x\n"},
        {"blanks that quotes keep", convert_text(R"(a,b\n1," x"\n2,"y "\n3,zz\n)"), 0, "a,b\n1,\" x\"\n2,\"y \"\n3,zz\n"},
        {"line breaks", convert_text(R"(a,b\n1,"x\ny"\n2,"y\r\n"\n3,zz\n)"), 0, "a,b\n1,\"x\ny\"\n2,\"y\r\n\"\n3,zz\n"},
        {"one column", convert_text("a\\n1\\n\"\"\\n2\\n3\\n", "--delimiter , --names-line 1 2>/dev/null"), 0,
         "a\n1\n\"\"\n2\n3\n"},
        {"names that are missing or doubled", convert_text(R"(id,,n,n,n_2\n1,2,3,4,x\n5,6,7,8,y\n9,8,7,6,z\n)"), 0,
         "id,column_2,n,n_3,n_2\n1,2,3,4,x\n5,6,7,8,y\n9,8,7,6,z\n"},
        {"no names", convert_text(R"(1;2\n3;4\n5;6\n)"), 0, "column_1,column_2\n1,2\n3,4\n5,6\n"},
        {"the user knows better", convert_text(R"(a;b\n1;2\n3;4\n5;6\n)", "--names-line 0 --header-lines 0"), 0,
         "column_1,column_2\na,b\n1,2\n3,4\n5,6\n"},
        {"a long record of plain text",
         convert_text(R"(first name;second name;third\nabcdefghijkl;mnopqrstuvwxy;z\n0;1,2;3\n)",
                      "--delimiter ';' --names-line 1 --first-data-line 2 --decimal ."),
         0, "first name,second name,third\nabcdefghijkl,mnopqrstuvwxy,z\n0,\"1,2\",3\n"},
        {"beyond ASCII", convert_text(R"(näme;wért\nüber;€ 5\n𝄞;"a""ß"\nx;y\n)", "--names-line 1"), 0,
         "näme,wért\nüber,€ 5\n𝄞,\"a\"\"ß\"\nx,y\n"},
        {"beyond ASCII, with the low byte of a quote, a line end, a comma",
         convert_text(R"(a;b;c\n1;Ģ;x\n2;Ċ;"Ĭ"\n3;"Ģ;Ģ";"x, y"\n4;y;z\n)", "--names-line 1 --delimiter ';'"), 0,
         "a,b,c\n1,Ģ,x\n2,Ċ,Ĭ\n3,Ģ;Ģ,\"x, y\"\n4,y,z\n"},
        {"a quote beyond ASCII", convert_text(R"(a;b\n1;“x;y“\n2;"z"\n3;“zz“\n)", "--quote '“' --delimiter ';' --names-line 1"),
         0, "a,b\n1,x;y\n2,\"\"\"z\"\"\"\n3,zz\n"},
        {"quotes that are not doubled",
         convert_text(R"(a;b\n1;"x"y"\n2;"x"\n3;"""x"\n4;"x""\n)", "--delimiter ';' --names-line 1 2>/dev/null | head -4"), 0,
         "a,b\n1,\"xy\"\"\"\n2,x\n3,\"\"\"x\"\n"},
        {"no text", "$program convert empty.txt", 0, ""},
        {"gzip", "gzip -c stock.txt | $program convert - | cksum", 0, run("convert stock.txt | cksum").output},
        {"prose", "$program convert letter.txt | head -2", 0, "column_1\nDear Miriam\n",
         "letter.txt: no table seen; each line becomes a cell\n"},
    });
}

/// Texts are copied in blocks of several sizes, and nothing in one may be missed.
TEST(Convert, sees_a_sign_at_each_place_of_each_size) {
    constexpr std::size_t sizes = 35;
    for (const std::string sign : {",", "\n", "\r", "\"\"", "é"}) {
        std::string text = "size;place;cell\n";
        std::string expected = "size,place,cell\n";
        for (std::size_t size = 1; size <= sizes; ++size) {
            for (std::size_t place = 0; place < size; ++place) {
                const std::string cell = std::string(place, 'a') + sign + std::string(size - 1 - place, 'b');
                const std::string value = sign == "é" ? cell : '"' + cell + '"';
                text += std::to_string(size) + ";" + std::to_string(place) + ";" + value + "\n";
                expected += std::to_string(size) + "," + std::to_string(place) + "," + value + "\n";
            }
        }
        const std::string layout = "--delimiter ';' --names-line 1 --first-data-line 2";
        EXPECT_EQ(run_script(convert_text(text, layout)).output, expected) << "with " << sign;
    }
}

TEST(Convert, tells_what_does_not_fit) {
    const std::string ragged = R"(a,b,c\n1,2,3\n4,5\n6,7,8,9\n1,2,3\n4,5,6\n)";
    const std::string told = "standard input: line 3: 2 fields instead of 3, ";
    const std::string also = "standard input: line 4: 4 fields instead of 3, ";
    const std::string total = "standard input: 2 of 5 records do not fit\n";
    std::string changed = "a,b,c\\n";
    std::string half = "a,b,c\n";
    for (int i = 0; i < 300; ++i) {
        changed += "1,2,3\\n";
        half += "1,2,3\n";
    }
    for (int i = 0; i < 30; ++i) {
        changed += "1;2;3\\n";
    }
    expect({
        {"padded", convert_text(ragged, "--delimiter ,"), 1, "a,b,c\n1,2,3\n4,5,\n6,7,8,9\n1,2,3\n4,5,6\n",
         told + "filled up with empty ones\n" + also + "all are written\n" + total},
        {"kept", convert_text(ragged, "--delimiter , --irregular keep --to jsonl | sed -n 2,3p"), 0,
         "{\"a\":4,\"b\":5}\n{\"a\":6,\"b\":7,\"c\":8,\"column_4\":\"9\"}\n",
         told + "written as they are\n" + also + "written as they are\n" + total},
        {"skipped", convert_text(ragged, "--delimiter , --irregular skip"), 1, "a,b,c\n1,2,3\n1,2,3\n4,5,6\n",
         told + "left out\n" + also + "left out\n" + total},
        {"stopped", convert_text(ragged, "--delimiter , --irregular stop"), 2, "",
         told + "the end of the conversion\nstandard input: stopped at a record that does not fit\n"},
        {"few lines", convert_text(ragged, "--delimiter , --reports 1 >/dev/null"), 1, "",
         told + "filled up with empty ones\nstandard input: 1 line more like that\n" + total},
        {"a layout that changes", convert_text(changed, "--irregular skip"), 1, half,
         "standard input: lines 302 to 331: 30 records with 1 field instead of 3, left out; the layout seems to change "
         "there\nstandard input: 30 of 330 records do not fit\n"},
        {"no line end at the end", convert_text(R"(a,b\n1,2\n3,4\n5,6)"), 0, "a,b\n1,2\n3,4\n5,6\n"},
        {"a last record cut short", convert_text(R"(a,b\n1,2\n3,4\n5,6\n7)", "--delimiter ,"), 1, "a,b\n1,2\n3,4\n5,6\n7,\n",
         "standard input: line 5: 1 field instead of 2, filled up with empty ones\n"},
        {"an open quote", convert_text(R"(a,b\n1,2\n3,4\n5,6\n7,"8\n9,0\n)", "--delimiter ,"), 1,
         "a,b\n1,2\n3,4\n5,6\n7,\"8\n9,0\n\"\n", "standard input: line 5: a quote is opened that nothing closes\n"},
        {"bytes that are none", convert_text(R"(a,b\nö,2\n3,\3774\nö,6\n)", "--encoding UTF-8"), 1, "a,b\nö,2\n3,\uFFFD4\nö,6\n",
         "standard input: line 3: has what could not be decoded, now U+FFFD\n"
         "standard input: 1 undecodable byte sequence in UTF-8\n"},
        {"U+FFFD in the text itself", convert_text(R"(a,b\nö,2\n3,\357\277\2754\nö,6\n)"), 0, "a,b\nö,2\n3,\uFFFD4\nö,6\n"},
        {"dates that are not sure", convert_text(R"(d,n\n01/02/2020,1\n03/04/2020,2\n05/06/2021,3\n)", "--iso-dates"), 0,
         "d,n\n01/02/2020,1\n03/04/2020,2\n05/06/2021,3\n",
         "standard input: the dates of 'd' are left as they are: day and month are not sure\n"},
        {"a date that is written otherwise",
         convert_text(R"(d,n\n13/02/2020,1\n03/04/2020,2\n05/06/2021,3\n2021-07-08,4\n)", "--iso-dates --rows 4"), 1,
         "d,n\n2020-02-13,1\n2020-04-03,2\n2021-06-05,3\n2021-07-08,4\n",
         "standard input: line 5: a date is written in another way, and is left as it is\n"},
    });
}

/// What must not be there after an error: the file, and one beside it.
std::string files_like(const std::string& path) {
    const std::filesystem::path file(path);
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
        const std::string name = entry.path().filename();
        names += name.starts_with(file.filename().native()) ? name + " " : "";
    }
    return names;
}

TEST(Convert, leaves_a_whole_file_or_none) {
    const std::string file = test_files() + "_table";
    const std::string to = " -o " + file;
    const std::string many = "{ echo a,b; yes 1,2 | head -c 20000000; }";
    const std::string open_quote = "{ echo a,b; yes 1,2 | head -n 1000; echo '9,\"'; yes 1,2 | head -c 20000000; }";
    std::filesystem::remove(file);
    expect({
        {"too long a record", open_quote + " | $program convert - --longest-record 65536" + to, 2, "",
         "standard input: line 1002: a record is longer than 65536 UTF-16 code units (--longest-record); perhaps a quote "
         "is never closed\n"},
        {"no line at all", "head -c 20000000 /dev/zero | tr '\\0' a | $program convert -" + to, 2, "",
         "standard input: no line ends in the first 4194304 UTF-16 code units\n"},
        {"an end of text in the middle",
         R"(printf 'a,b\n1,2\n3,4\n\357\277\277,5\n6,7\n' | $program convert - --delimiter ,)" + to, 2, "",
         "standard input: record 3 starts with U+FFFF, which ends a text\n"},
        {"a policy", "printf 'a,b\\n1,2\\n3,4\\n5\\n6,7\\n' | $program convert - --delimiter , --irregular stop 2>/dev/null" + to,
         2, ""},
        {"no input", "$program convert no_such_file.csv" + to, 2, "", "no_such_file.csv: no such file\n"},
        {"damaged input", "gzip -c stock.txt | head -c 90 | $program convert -" + to, 2, "",
         "standard input: ends in the middle of its compressed data\n"},
        {"no folder", "$program convert stock.txt -o no_such_folder/x", 2, "",
         "no_such_folder/x: cannot be created: No such file or directory\n"},
        {"a full disk", "$program convert stock.txt -o /dev/full", 2, "",
         "/dev/full: cannot be written: No space left on device\n"},
        {"a full disk for more than a piece", many + " | $program convert - -o /dev/full", 2, "",
         "/dev/full: cannot be written: No space left on device\n"},
        {"a full disk behind a pipe", "$program convert stock.txt >/dev/full", 2, "",
         "cannot write to standard output: No space left on device\n"},
        {"a disk that fills up",
         "(ulimit -f 8; trap '' XFSZ; " + many + " | $program convert - 2>&1" + to + ") | sed 's/.*: c/c/'", 0,
         "cannot be written: File too large\n"},
        {"standard output closed", "$program convert stock.txt >&-", 2, "", "standard output is closed\n"},
    });
    EXPECT_EQ(files_like(file), "");

    const Outcome whole = run("convert stock.txt" + to);
    EXPECT_EQ(whole.status, 0) << whole.errors;
    EXPECT_EQ(whole.output, "");
    const std::string table = content(file);
    EXPECT_EQ(table, run("convert stock.txt").output);
    expect({
        {"an output that exists", "$program convert gate_log.txt 2>&1" + to, 2,
         "detect_layout: " + file + ": exists; --force replaces it\n"},
        {"an error, with --force", "$program convert no_such_file.csv --force 2>/dev/null" + to, 2, ""},
    });
    EXPECT_EQ(content(file), table);
    EXPECT_EQ(run_script("chmod 640 " + file + "; ln -sf " + file + " " + file +
                         ".link; $program convert staff_crlf.csv --force -o " + file + ".link; stat -c %a " + file +
                         "; test -L " + file + ".link")
                  .output,
              "640\n");
    EXPECT_EQ(content(file), run("convert staff_crlf.csv").output);
    EXPECT_EQ(run_script("cp stock.txt " + file + "; $program convert --force " + file + to).status, 0);
    EXPECT_EQ(content(file), table) << "onto its own input";
    std::filesystem::remove(file + ".link");
    EXPECT_EQ(files_like(file), std::filesystem::path(file).filename().native() + " ");
}

TEST(Convert, leaves_nothing_where_the_user_breaks_off) {
    for (const char* signal : {"INT", "TERM", "HUP"}) {
        const std::string file = test_files() + "_broken_off";
        // bash has programs in the background ignore INT, unless they are jobs.
        const Outcome result =
            run_script("bash -c 'set -m; { yes 1,2; } | " PROGRAMS "/detect_layout convert - -o " + file +
                       " & for i in $(seq 100); do ls " + file + ".* >/dev/null 2>&1 && break; sleep 0.05; done; " + "ls " +
                       file + ".* | wc -l; kill -" + signal + " -- -$(jobs -p); wait; ls " + file + "* 2>/dev/null'");
        EXPECT_EQ(result.output, "1\n") << signal << result.errors;
    }
}

TEST(Convert, gives_json_that_others_can_read) {
    const Outcome result = run_script(
        R"(printf 'id;"a ""b"" \\";x\n007;"tab\there";1e5\n010;"line\nbreak\r";.5\n11;"\001 ü";5.\n012;bare \\;-.25\n' | )"
        "$program convert - --to jsonl --names-line 1 --delimiter ';'");
    std::istringstream lines(result.output);
    std::vector<nlohmann::json> rows;
    for (std::string line; std::getline(lines, line);) {
        rows.push_back(nlohmann::json::parse(line));
    }
    ASSERT_EQ(rows.size(), 4U) << result.output << result.errors;
    const std::string key = R"(a "b" \)";
    EXPECT_EQ(rows[0], (nlohmann::json{{"id", "007"}, {key, "tab\there"}, {"x", 1e5}}));
    EXPECT_EQ(rows[1], (nlohmann::json{{"id", "010"}, {key, "line\nbreak\r"}, {"x", 0.5}}));
    EXPECT_EQ(rows[2], (nlohmann::json{{"id", 11}, {key, "\x01 ü"}, {"x", 5}}));
    EXPECT_EQ(rows[3], (nlohmann::json{{"id", "012"}, {key, "bare \\"}, {"x", -0.25}}));
}

TEST(Convert, shows_how_far_it_is) {
    const std::string file = test_files() + "_long";
    const Outcome result =
        run_script("{ echo a,b; yes 1234567,1234567 | head -c 17000000; } >" + file + ".csv; TERM=xterm script -qec \"" +
                   "$program convert " + file + ".csv -o /dev/null\" /dev/null </dev/null; rm " + file + ".csv");
    EXPECT_NE(result.output.find("/17 MB of "), std::string::npos) << result.output;
    EXPECT_TRUE(result.output.ends_with("\r\x1b[K")) << "the bar is taken away";
}

TEST(Subcommands, are_the_first_word_alone) {
    const std::string folder = test_files() + "_folder";
    expect({
        {"a file of that name",
         "mkdir -p " + folder + "; cp stock.txt " + folder + "/convert; cd " + folder +
             "; $program ./convert stock 2>/dev/null | cut -d, -f1",
         0, "./convert: delimited by vertical bar\n"},
        {"an option first", "cd " + folder + "; $program --json convert | grep -c vertical; rm -r " + folder, 0, "0\n"},
        {"no file", "$program convert", 2, "", "which file? (- for standard input, --help for help)\n"},
        {"one file", "$program diff stock.txt", 2, "", "which two files? (- for standard input, --help for help)\n"},
        {"an unknown format", "$program convert --to xls stock.txt 2>/dev/null", 2, ""},
        {"an option of another command", "$program diff --force a b", 2, "", "unknown option '--force'\n"},
    });
    EXPECT_NE(run("convert --help").output.find("--iso-dates"), std::string::npos);
}

} // namespace
