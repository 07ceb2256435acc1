#include "cell_text.hpp"
#include "command_line.hpp"
#include "detection.hpp"
#include "input_files.hpp"
#include "layout_names.hpp"
#include "picture.hpp"
#include "running.hpp"
#include "string_bytes.hpp"
#include "table.hpp"
#include "unicode.hpp"
#include "user_error.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace detect_layout;

TEST(Program, tells_errors_on_one_line) {
    for (const char* arguments :
         {"no_such_file.csv", ".", "--rows many stock.txt", "--layout round x", "--quote ab stock.txt",
          "--encoding none stock.txt", "", "--widths 3,4 --layout open stock.txt", "--delimiter , --layout lines stock.txt",
          "--rules --layout lines stock.txt", "--delimiter '' stock.txt", "--first-data-line 0 stock.txt"}) {
        const Outcome result = run(arguments);
        EXPECT_EQ(result.status, 2) << arguments;
        EXPECT_EQ(result.output, "") << arguments;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << arguments << ": " << result.errors;
    }
}

TEST(Program, tells_what_is_wrong_with_an_input) {
    for (const auto& [script, errors] : std::vector<std::pair<std::string, std::string>>{
             {"$program - <&-", "standard input: is closed"},
             {"$program - <.", "standard input: is a directory (--recursive walks it)"},
             {"$program .", ".: is a directory (--recursive walks it)"},
             {"$program no_such_file.csv", "no_such_file.csv: no such file"},
             {"$program", "which file? (- for standard input, --help for help)"},
             {"$program --dash.csv stock.txt", "unknown option '--dash.csv'"},
             {"cd " + testing::TempDir() + "; touch ./-dash.csv; $program -dash.csv",
              "unknown option '-dash.csv'; the file is ./-dash.csv"},
             {"$program --comment-end '*/' stock.txt", "--comment-end requires --comment"},
             {"$program --no-comments --comment % stock.txt", "--comment excludes --no-comments"},
             {"$program --widths 3,4 --delimiter , stock.txt", "--delimiter excludes --widths"},
             {"$program --expect-variables 5 stock.txt", "--expect-variables requires --rules"},
             {"$program --rules --names-line 1 stock.txt", "--names-line excludes --rules"},
             {"gzip -c stock.txt | head -c 90 | $program -", "standard input: ends in the middle of its compressed data"},
             {"printf '\\037\\213\\007ab' | $program -", "standard input: has damaged compressed data"},
         }) {
        const Outcome result = run_script(script);
        EXPECT_EQ(result.status, 2) << script;
        EXPECT_EQ(result.output, "") << script;
        EXPECT_EQ(result.errors, "detect_layout: " + errors + "\n") << script;
    }
}

TEST(Program, unpacks_what_gzip_compressed) {
    const Outcome result = run_script("(gzip -c stock.txt; gzip -c stock.txt) | $program --json - stock.txt");
    std::istringstream lines(result.output);
    nlohmann::json packed, plain;
    lines >> packed >> plain;
    EXPECT_EQ(packed["compression"], "gzip");
    EXPECT_EQ(packed["num_variables"], plain["num_variables"]);
    EXPECT_EQ(packed["rows"], 2 * plain["rows"].get<int>());
    EXPECT_TRUE(plain["compression"].is_null());
}

TEST(Program, fails_where_its_answer_or_its_complaint_is_lost) {
    struct Case {
        const char* arguments;
        int status;
        const char* errors;
    };
    for (const Case& test : std::vector<Case>{
             {"stock.txt >/dev/full", 2, "detect_layout: cannot write to standard output: No space left on device\n"},
             {"--json stock.txt >/dev/full", 2, "detect_layout: cannot write to standard output: No space left on device\n"},
             {"-r . >/dev/full", 2, "detect_layout: cannot write to standard output: No space left on device\n"},
             {"stock.txt >&-", 2, "detect_layout: standard output is closed\n"},
             {"--help >&-", 2, "detect_layout: standard output is closed\n"},
             {"--version >/dev/full", 2, "detect_layout: cannot write to standard output: No space left on device\n"},
             {"no_such_file.csv 2>&-", 2, ""},
             {"no_such_file.csv 2>/dev/full", 2, ""},
             {"stock.txt >&- 2>&-", 2, ""},
             {"stock.txt 2>&-", 0, ""},
         }) {
        const Outcome result = run(test.arguments);
        EXPECT_EQ(result.status, test.status) << test.arguments;
        EXPECT_EQ(result.errors, test.errors) << test.arguments;
    }
}

TEST(Program, hands_out_each_answer_before_it_reads_on) {
    // The pipe gives no input as long as the shell holds it open.
    const std::string pipe = test_files() + ".pipe";
    const Outcome result = run_script("rm -f " + pipe + "; mkfifo " + pipe + "; $program stock.txt - <" + pipe + " >" + pipe +
                                      ".out & exec 9>" + pipe + "; for i in $(seq 100); do test -s " + pipe +
                                      ".out && break; sleep 0.1; done; kill -KILL $!; wait $!; cat " + pipe + ".out");
    EXPECT_TRUE(result.output.starts_with("stock.txt: delimited by vertical bar")) << result.output;
}

TEST(Program, goes_on_after_a_file_that_cannot_be_read) {
    const Outcome result = run("--json stock.txt no_such_file.csv - <empty.txt");
    EXPECT_EQ(result.status, 2);
    std::istringstream lines(result.output);
    std::vector<nlohmann::json> answers;
    for (std::string line; std::getline(lines, line);) {
        answers.push_back(nlohmann::json::parse(line));
    }
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[0]["delimiters"], nlohmann::json::array({"|"}));
    EXPECT_EQ(answers[1]["kind"], "line");
    EXPECT_EQ(answers[1]["rows"], 0);
}

TEST(Program, walks_a_directory) {
    const Outcome result = run("--recursive .");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.output.find("./pool_tickets.csv: delimited by comma, 5 columns, data from line 3, names on line 2, 20 rows, "
                                 "sure, UTF-8\n"),
              std::string::npos)
        << result.output;
    EXPECT_NE(run("-r --rules .").output.find("./stock.txt: delimited by vertical bar, 0 header lines, 5 variables, 15 rows"),
              std::string::npos);
}

TEST(InputFiles, tell_of_directories_that_cannot_be_read) {
    const std::string directory = test_files() + "/";
    for (const char* below : {"a", "b", ".hidden"}) {
        std::filesystem::create_directories(directory + below);
        std::ofstream(directory + below + "/x.csv") << "a;b\n";
    }
    std::ofstream(directory + "z.csv") << "a;b\n";
    std::filesystem::permissions(directory + "a", std::filesystem::perms::none);
    Settings settings;
    settings.inputs = {directory, "stock.txt"};
    settings.recursive = true;
    // Nothing is closed to root.
    const bool is_root = geteuid() == 0;
    ASSERT_EQ(is_root ? seteuid(65534) : 0, 0);
    const auto files = input_files(settings);
    ASSERT_EQ(is_root ? seteuid(0) : 0, 0);
    std::filesystem::permissions(directory + "a", std::filesystem::perms::all);
    std::vector<std::string> found;
    for (const auto& [path, trouble] : files) {
        found.push_back(path + ":" + trouble);
    }
    EXPECT_EQ(found, (std::vector<std::string>{directory + "a:Permission denied",
                                               directory + "b/x.csv:", directory + "z.csv:", "stock.txt:"}));
}

TEST(CellText, fits_the_terminal) {
    struct Case {
        std::u16string text;
        std::size_t limit;
        std::string shown;
        std::size_t width;
    };
    for (const Case& test : std::vector<Case>{
             {u"", 5, "", 0},
             {u"  plain ", 5, "plain", 5},
             {u"plainer", 5, "plai…", 5},
             {u"東京都庁", 8, "東京都庁", 8},
             {u"東京都庁", 6, "東京…", 5},
             {u"e\u0301te\u0301", 3, "e\u0301te\u0301", 3},
             {u"a\tb\nc", 9, "a→b↵c", 5},
             {u"\x1b[2J\u202E\x9B", 9, "␛[2J▯▯", 6},
             {u"نمی\u200Cخواهم", 9, "نمی\u200Cخواهم", 8},
             {u"क्\u200Dष", 2, "क्\u200Dष", 2},
             {u"Donau\u00ADdampf", 10, "Donaudampf", 10},
             {std::u16string(1, u'\xD800'), 5, "\uFFFD", 1},
         }) {
        const CellText cell = printable(test.text, test.limit);
        EXPECT_EQ(cell.utf8, test.shown);
        EXPECT_EQ(cell.width, test.width) << test.shown;
    }
}

TEST(Program, names_files_so_that_nothing_is_done_to_a_terminal) {
    const std::string directory = test_files() + "/";
    std::filesystem::create_directories(directory);
    const std::string escape = directory + "\x1b[2J.csv";
    const std::string latin = directory + "caf\xE9.csv";
    for (const std::string& name : {escape, latin}) {
        std::ofstream(name) << "a;b\n";
    }
    const Outcome listed = run("-r --rules " + directory);
    EXPECT_EQ(listed.output, directory + "␛[2J.csv: delimited by semicolon, 0 header lines, 2 variables, 1 row, UTF-8\n" +
                                 directory +
                                 "caf\uFFFD.csv: delimited by semicolon, 0 header lines, 2 variables, 1 row, UTF-8\n");
    EXPECT_EQ(run("'" + escape + "x'").errors, "detect_layout: " + directory + "␛[2J.csvx: no such file\n");
    EXPECT_EQ(run("'" + escape + "'").output.find('\x1b'), std::string::npos);

    const auto answer = nlohmann::json::parse(run("--json " + latin).output);
    std::string bytes;
    for (const char byte : latin) {
        bytes += fmt::format("{:02x}", static_cast<unsigned char>(byte));
    }
    EXPECT_EQ(answer["file_bytes"], bytes);
    EXPECT_FALSE(nlohmann::json::parse(run("--json stock.txt").output).contains("file_bytes"));
}

TEST(Program, colours_only_where_colours_are_to_be_had) {
    for (const auto& [environment, is_coloured] : std::vector<std::pair<const char*, bool>>{{"TERM=xterm NO_COLOR=", true},
                                                                                            {"TERM=dumb NO_COLOR=", false},
                                                                                            {"TERM=xterm NO_COLOR=1", false},
                                                                                            {"-u TERM", false}}) {
        // script gives the program a terminal.
        const Outcome result =
            run_script("script -qec \"env " + std::string(environment) + " $program stock.txt\" /dev/null </dev/null");
        EXPECT_EQ(result.output.find('\x1b') != std::string::npos, is_coloured) << environment;
        EXPECT_NE(result.output.find("delimited by vertical bar"), std::string::npos) << result.output;
    }
    EXPECT_EQ(run_script("TERM=xterm NO_COLOR= $program stock.txt").output.find('\x1b'), std::string::npos);
}

TEST(LayoutNames, name_delimiters_that_cannot_be_shown) {
    for (const auto& [delimiter, name] :
         std::vector<std::pair<std::u16string, const char*>>{{u"\t", "tab"},
                                                             {u"x", "'x'"},
                                                             {u"§", "'§'"},
                                                             {u"\x01", "U+0001"},
                                                             {u"\x9B", "U+009B"},
                                                             {u"\u202E", "U+202E"},
                                                             {u"||", "vertical bar vertical bar"}}) {
        EXPECT_EQ(delimiter_name(delimiter), name);
    }
}

TEST(Picture, sets_columns_apart_and_keeps_to_the_width) {
    Settings settings;
    settings.options.header_lines = 3;
    settings.options.detect_header_lines = false;
    const Detection small =
        detect("-", std::make_unique<StringBytes>("Title\n# a comment\nname,size\nAnn,41\nBob,37\nCid,29\n"), settings);
    EXPECT_EQ(draw_picture(table_of(small), {.width = 20, .data_rows = 2}),
              "Title\n# a comment\nname │ size\n─────┼─────\nAnn  │ 41\nBob  │ 37\n⋮ 1 more in the "
              "sample\n");
    EXPECT_NE(draw_picture(table_of(small), {.colour = true}).find("\x1b[36mAnn\x1b[0m"), std::string::npos);

    std::string row = "1";
    for (int i = 0; i < 40; ++i) {
        row += ";value " + std::to_string(i);
    }
    const Detection wide = detect("-", std::make_unique<StringBytes>(row + "\n" + row + "\n"), Settings());
    std::istringstream lines(draw_picture(table_of(wide), {.width = 40, .data_rows = 5}));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(printable(to_utf16(line), 1000).width, 40U) << line;
    }
}

} // namespace
