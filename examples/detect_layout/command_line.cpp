#include "command_line.hpp"

#include "option_texts.hpp"
#include "textio/version.hpp"
#include "user_error.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

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

/// Refuses what a conversion to an unsigned number would take without a word.
const CLI::Validator& no_sign() {
    static const CLI::Validator validator(
        [](const std::string& text) {
            return text.starts_with('-') ? fmt::format("'{}' is no count", text) : std::string();
        },
        "");
    return validator;
}

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

void declare_reading(CLI::App& app, Settings& settings, OptionTexts& texts) {
    const char* const group = "What you may know about the text";
    app.add_option("--rows", settings.rows, "Rows to sample (default 250)")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_option("--encoding", texts.encoding, "Character set")->type_name("NAME")->group(group);
    app.add_option("--quote", texts.quote, "Quote character; empty for none")
        ->type_name("C")
        ->group(group);
    app.add_option("--decimal", texts.decimal, "Decimal mark of numbers")
        ->type_name("C")
        ->group(group);
    app.add_option("--thousands", texts.thousands, "Thousands separator; empty for none")
        ->type_name("C")
        ->group(group);
    app.add_option("--whitespace", texts.whitespace, "Characters that count as blank")
        ->type_name("S")
        ->group(group);
    app.add_option("--missing", texts.missing, "Text of a field without a value; repeatable")
        ->type_name("TEXT")
        ->allow_extra_args(false)
        ->group(group);
    auto* const comment = app.add_option("--comment", texts.comment, "What opens a comment")
                              ->type_name("TEXT")
                              ->group(group);
    app.add_option("--comment-end", texts.comment_end,
                   "What closes it, unless that is the end of the line")
        ->type_name("TEXT")
        ->needs(comment)
        ->group(group);
    app.add_flag("--no-comments", texts.no_comments, "There are no comments")
        ->excludes(comment)
        ->group(group);
}

void declare_layout(CLI::App& app, OptionTexts& texts, CLI::Option* rules) {
    const char* const group = "What you may know about the table";
    app.add_option("--layout", texts.layout,
                   "open (default), delimited, aligned (with blanks), fixed (widths), lines (no "
                   "fields), or no-fixed: anything but fixed widths")
        ->type_name("NAME")
        ->check(CLI::IsMember({"open", "delimited", "aligned", "fixed", "lines", "no-fixed"}))
        ->group(group);
    auto* const delimiter =
        app.add_option("--delimiter", texts.delimiter, "What separates the fields")
            ->type_name("TEXT")
            ->excludes(rules)
            ->group(group);
    app.add_option("--widths", texts.widths,
                   "Widths of fixed-width columns in UTF-16 code units; implies --layout fixed")
        ->type_name("N,N,...")
        ->delimiter(',')
        ->check(no_sign())
        ->allow_extra_args(false)
        ->excludes(delimiter)
        ->group(group);
    auto* const header =
        app.add_option("--header-lines", texts.header_lines, "Lines above the data")
            ->type_name("N")
            ->check(no_sign())
            ->group(group);
    app.add_option("--first-data-line", texts.first_data_line,
                   "The same: the line with which the data begin, from 1")
        ->type_name("N")
        ->check(no_sign())
        ->excludes(header)
        ->group(group);
    app.add_option("--names-line", texts.names_line,
                   "The line with the names of the columns, from 1; 0 for none")
        ->type_name("N")
        ->check(no_sign())
        ->excludes(rules)
        ->group(group);
}

/// Gives the option that asks for the rules.
CLI::Option* declare_rules(CLI::App& app, Settings& settings, OptionTexts& texts) {
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
    return rules;
}

void refuse_extras(const std::vector<std::string>& extras) {
    // A "--" in front of the files counts as one.
    if (extras.empty() || extras.front() == "--") {
        return;
    }
    std::error_code ignored;
    const bool is_file = std::filesystem::exists(extras.front(), ignored);
    throw UserError(fmt::format("unknown option '{0}'{1}", extras.front(),
                                is_file ? fmt::format("; the file is ./{}", extras.front()) : ""));
}

/// What the parser complains of can take up several lines.
std::string joined_lines(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

} // namespace

Settings read_command_line(int count, const char* const* arguments) {
    Settings settings;
    OptionTexts texts;
    CLI::App app("Works out how tabular texts are laid out.", "detect_layout");
    app.footer(examples);
    app.set_version_flag("--version", "detect_layout " TEXTIO_VERSION_STRING);
    app.add_option("input", settings.inputs, "Files; - for standard input")->type_name("FILE");
    app.allow_extras(); // to be told more of than that they were not expected
    declare_output(app, settings);
    declare_reading(app, settings, texts);
    declare_layout(app, texts, declare_rules(app, settings, texts));
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        std::ostringstream text;
        app.exit(help, text, text);
        settings.help = text.str();
        return settings;
    } catch (const CLI::ParseError& error) {
        throw UserError(joined_lines(error.what()));
    }
    refuse_extras(app.remaining());
    if (settings.inputs.empty()) {
        throw UserError("which file? (- for standard input, --help for help)");
    }
    apply(texts, settings);
    return settings;
}

} // namespace detect_layout
