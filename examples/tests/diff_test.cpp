#include "running.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace detect_layout;

constexpr auto feed = "Day;Place;Price;Note\\n02.03.2021;\"Ulm\";1234,50;\"a;b\"\\n14.11.2021;\"Bonn\";0,08;\"c\"\\n30.06.2022;"
                      "\"Kiel\";7,50;\"d;e\"\\n";

TEST(Diff, names_each_difference) {
    struct Case {
        const char* what;
        const char* after; ///< a sed script that makes the second file of the first, or its text
        const char* output;
    };
    for (const auto& [what, after, output] : std::vector<Case>{
             {"nothing", "", ""},
             {"other values", "s/Ulm/Jena/;s/1234,50/99,25/", ""},
             {"a quote that is not needed", "s/\"a;b\"/ab/;s/\"d;e\"/de/;s/\"//g", ""},
             {"the delimiter", "s/\"//g;s/\\([a-e]\\);\\([a-e]\\)/\\1\\2/;s/;/|/g",
              "layout: delimited by semicolon -> delimited by vertical bar\n"},
             {"the quote", "s/\"/~/g", "quote: \" -> ~\n"},
             {"the decimal mark", "s/,/./g", "decimal mark: comma -> point\n"},
             {"comments", "2s/^/# new\\n/", "comments: none -> #\ndata: from line 2 -> from line 3\n"},
             {"lines above", "1s/^/Sales of a day\\n\\n/", "names: line 1 -> line 3\ndata: from line 2 -> from line 4\n"},
             {"the names", "1d", "names: line 1 -> none\ndata: from line 2 -> from line 1\n"},
             {"a renamed column", "s/Place/Town/", "column 2 renamed: 'Place' -> 'Town'\n"},
             {"a column more", "s/^\\([^;]*\\);/\\1;x;/;1s/;x/;New/", "column added: 'New', is 2\n"},
             {"a column less", "s/^[^;]*;//", "column removed: 'Day', was 1\n"},
             {"a moved column", "s/^\\([^;]*\\);\\([^;]*\\);\\([^;]*\\);/\\2;\\3;\\1;/", "column moved: 'Day', 1 -> 3\n"},
             {"other values altogether", "2,$s/;[^;]*,[^;]*;/;none of it;/", "values of 'Price': number -> text\n"},
             {"the line endings", "s/$/\\r/", "line endings: LF -> CR LF\n"},
         }) {
        const std::string files = test_files();
        const Outcome result = run_script("printf '" + std::string(feed) + "' >" + files + ".a; sed '" + after + "' " + files +
                                          ".a >" + files + ".b; $program diff " + files + ".a - <" + files + ".b");
        EXPECT_EQ(result.output, output) << what << result.errors;
        EXPECT_EQ(result.status, *output == '\0' ? 0 : 1) << what;
    }
}

TEST(Diff, compares_character_sets_where_they_matter) {
    const auto diff = [](const std::string& name, const std::string& set) {
        const std::string text = R"(printf 'name,size\n)" + name + R"(,5\nBonn,6\nKiel,77\n')";
        return run_script(text + " >" + test_files() + ".a; " + text + " | iconv -t " + set + " | $program diff " + test_files() +
                          ".a -");
    };
    EXPECT_EQ(diff("Gr\u00f6\u00dfe", "UTF-16").output, "character set: UTF-8 -> UTF-16LE\n");
    EXPECT_EQ(diff("Gr\u00f6\u00dfe und M\u00fche", "windows-1252").output, "character set: UTF-8 -> windows-1252\n");
    EXPECT_EQ(diff("Ulm", "windows-1252").status, 0);
}

TEST(Diff, fails_where_there_is_nothing_to_compare) {
    const Outcome result = run("diff stock.txt no_such_file.csv");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "detect_layout: no_such_file.csv: no such file\n");
}

} // namespace
