#include "diff_command.hpp"

#include "advice_words.hpp"
#include "cell_text.hpp"
#include "known_options.hpp"
#include "layout_diff.hpp"
#include "output.hpp"
#include "subcommands.hpp"
#include "user_error.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <string>

namespace detect_layout {

namespace {

constexpr auto footer = R"(Example, for a feed whose supplier may change the format:
  detect_layout diff yesterday.csv today.csv

Prints a line for each difference: layout, quote, comments, marks of numbers, where names and data stand, character set, line endings, and columns that are new, gone, renamed, moved or of another kind. What you say is taken for certain of both files.

Exit status: 0 if they are laid out alike, 1 if not, 2 after an error.)";

Advised advised(const std::string& file, const Settings& settings) {
    const std::string name = file == "-" ? "standard input" : file;
    try {
        Advised result = advise(file, open_bytes(file), settings);
        if (is_doubtful(result.advice)) {
            complain(fmt::format("{}: {}", name, confidence_phrase(result.advice)));
        }
        return result;
    } catch (const UserError& error) {
        throw UserError(fmt::format("{}: {}", name, error.what()));
    }
}

} // namespace

int run_diff(int count, const char* const* arguments) {
    Settings settings;
    OptionTexts texts;
    CLI::App app("Tells whether two files are laid out alike.", "detect_layout diff");
    app.footer(footer);
    app.add_option("input", settings.inputs, "Two files; - for standard input")->type_name("FILE");
    declare_known_options(app, settings, texts);
    const std::string help = parse(app, count, arguments);
    if (!help.empty()) {
        write_out(help);
        return all_went_well;
    }
    if (settings.inputs.size() != 2) {
        throw UserError("which two files? (- for standard input, --help for help)");
    }
    apply(texts, settings);
    const Advised before = advised(settings.inputs.front(), settings);
    const Advised after = advised(settings.inputs.back(), settings);
    const auto lines = layout_differences(before, after);
    std::string text;
    for (const std::string& line : lines) {
        text += one_line(line) + "\n";
    }
    write_out(text);
    return lines.empty() ? all_went_well : something_is_irregular;
}

} // namespace detect_layout
