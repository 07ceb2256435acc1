#include "command_line.hpp"

#include "known_options.hpp"
#include "option_texts.hpp"
#include "subcommands.hpp"
#include "textio/version.hpp"
#include "user_error.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace detect_layout {

namespace {

constexpr auto examples = R"(Examples:
  detect_layout sales.csv                     how is it laid out, and what does it look like?
  detect_layout --json sales.csv | jq .kind   the same for a program
  detect_layout --explain sales.csv           why this layout and no other?
  curl -s https://host/data | detect_layout -
  detect_layout --recursive measurements/     one line for each file
  detect_layout --decimal , --thousands . umsatz.csv
  detect_layout --comment '/*' --comment-end '*/' listing.txt
  detect_layout --widths 10,8,6 export.txt

What you say is taken for certain, and the rest is found. A character C is one character or one of \t \n \r \0 \\. Exit status: 0, or 2 after an error.)";

void declare_output(CLI::App& app, Settings& settings) {
    const char* const group = "Output";
    app.add_flag("--json", settings.json, "One JSON object per input, each on one line")
        ->group(group);
    app.add_flag("--explain", settings.explain,
                 "Show what was compared, and what spoke for it and against it")
        ->group(group);
    app.add_option("--show", settings.shown_rows, "Data rows in the picture (default 10)")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_flag("-r,--recursive", settings.recursive, "Look at all files of a directory")
        ->group(group);
}

void declare_rules(CLI::App& app, Settings& settings, OptionTexts& texts) {
    const char* const group = "The older way";
    auto* const rules = app.add_flag("--rules", settings.rules,
                                     "Answer by rules, which take what you do not say for usual")
                            ->group(group);
    app.add_option("--exclude-delimiter", texts.excluded_delimiter,
                   "Character that is no delimiter (default the decimal mark); empty for none")
        ->type_name("C")
        ->needs(rules)
        ->group(group);
    app.add_option("--expect-variables", texts.expected_variables, "Number of columns")
        ->type_name("N")
        ->check(no_sign())
        ->needs(rules)
        ->group(group);
    for (const char* const unknown_to_rules : {"--delimiter", "--names-line"}) {
        app.get_option(unknown_to_rules)->excludes(rules);
    }
}

std::string footer() {
    return fmt::format("Other commands, each with a --help of its own:\n{}\n{}", list_subcommands(),
                       examples);
}

} // namespace

Settings read_command_line(int count, const char* const* arguments) {
    Settings settings;
    OptionTexts texts;
    CLI::App app("Works out how tabular texts are laid out.", "detect_layout");
    app.footer(footer());
    app.set_version_flag("--version", "detect_layout " TEXTIO_VERSION_STRING);
    app.add_option("input", settings.inputs, "Files; - for standard input")->type_name("FILE");
    declare_output(app, settings);
    declare_known_options(app, settings, texts);
    declare_rules(app, settings, texts);
    settings.help = parse(app, count, arguments);
    if (!settings.help.empty()) {
        return settings;
    }
    if (settings.inputs.empty()) {
        throw UserError("which file? (- for standard input, --help for help)");
    }
    apply(texts, settings);
    return settings;
}

} // namespace detect_layout
