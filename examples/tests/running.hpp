#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace detect_layout {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

inline std::string content(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The start of the names of files that the running test may write.
inline std::string test_files() {
    return testing::TempDir() + "detect_layout_" + testing::UnitTest::GetInstance()->current_test_info()->name();
}

/// Runs `script` where the example files are; `$program` is the program.
inline Outcome run_script(const std::string& script) {
    const std::string files = test_files();
    const std::string command =
        "cd " EXAMPLE_DATA "; program=" PROGRAMS "/detect_layout; { " + script + "\n} >" + files + ".out 2>" + files + ".err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content(files + ".out"), content(files + ".err")};
}

inline Outcome run(const std::string& arguments) {
    return run_script("$program " + arguments);
}

} // namespace detect_layout
