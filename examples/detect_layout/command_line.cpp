#include "command_line.hpp"

#include "character_set.hpp"
#include "textio/version.hpp"
#include "unicode.hpp"
#include "user_error.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string_view>
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
  detect_layout --layout fixed --widths 10,8,6 export.txt

A character C is one character or one of \t \n \r \0 \\. Exit status: 0, or 2 after an error.)";

/// Options whose texts need a second look once all of them are known. Absent ones are null.
struct Texts {
    std::optional<std::string> quote;
    std::optional<std::string> decimal;
    std::optional<std::string> thousands;
    std::optional<std::string> whitespace;
    std::optional<std::string> excluded_delimiter;
    std::optional<std::string> layout;
    std::optional<std::string> encoding;
    std::optional<std::size_t> header_lines;
    std::optional<std::size_t> expected_variables;
    std::optional<std::string> comment;
    std::optional<std::string> comment_end;
    std::vector<std::string> missing;
    bool no_comments = false;
};

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
    app.add_flag("--json", settings.json, "One JSON object per input, each on one line")
        ->group("Output");
    app.add_flag("--explain", settings.explain,
                 "Show all layouts that were compared, and why each was dropped")
        ->group("Output");
    app.add_option("--show", settings.shown_rows, "Data rows in the picture (default 10)")
        ->type_name("N")
        ->check(no_sign())
        ->group("Output");
    app.add_flag("-r,--recursive", settings.recursive, "Look at all files of a directory")
        ->group("Output");
}

void declare_knowledge(CLI::App& app, Settings& settings, Texts& texts) {
    const char* const group = "What you may know about the text";
    app.add_option("--rows", settings.rows, "Rows to sample (default 250)")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_option("--encoding", texts.encoding, "Character set, instead of finding it")
        ->type_name("NAME")
        ->group(group);
    app.add_option("--quote", texts.quote, "Quote character (default \"); empty for none")
        ->type_name("C")
        ->group(group);
    app.add_option("--decimal", texts.decimal, "Decimal mark (default .), never tried as delimiter")
        ->type_name("C")
        ->group(group);
    app.add_option("--thousands", texts.thousands, "Thousands separator of numbers")
        ->type_name("C")
        ->group(group);
    app.add_option("--whitespace", texts.whitespace, "Characters that count as blank")
        ->type_name("S")
        ->group(group);
    app.add_option("--header-lines", texts.header_lines, "Lines above the data")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_option("--layout", texts.layout,
                   "open: anything (default), no-fixed: no fixed widths, fixed: fixed widths only")
        ->type_name("NAME")
        ->check(CLI::IsMember({"open", "no-fixed", "fixed"}))
        ->group(group);
    app.add_option("--widths", settings.options.field_widths,
                   "Widths of fixed-width columns in UTF-16 code units; implies --layout fixed")
        ->type_name("N,N,...")
        ->delimiter(',')
        ->check(no_sign())
        ->allow_extra_args(false)
        ->group(group);
    app.add_option("--exclude-delimiter", texts.excluded_delimiter,
                   "Character that is no delimiter (default the decimal mark); empty for none")
        ->type_name("C")
        ->group(group);
    app.add_option("--expect-variables", texts.expected_variables, "Number of columns")
        ->type_name("N")
        ->check(no_sign())
        ->group(group);
    app.add_option("--missing", texts.missing, "Text of a field without a value; repeatable")
        ->type_name("TEXT")
        ->allow_extra_args(false)
        ->group(group);
    const auto comment =
        app.add_option("--comment", texts.comment, "What opens a comment (default #)")
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

/// `text` in UTF-16, with the usual backslash escapes undone.
std::u16string unescaped(std::string_view text) {
    static constexpr std::u16string_view letters = u"tnr0\\";
    static constexpr std::u16string_view meanings{u"\t\n\r\0\\", letters.size()};
    const std::u16string units = to_utf16(text);
    std::u16string result;
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto letter = units[i] == u'\\' && i + 1 < units.size() ? letters.find(units[i + 1])
                                                                      : std::u16string_view::npos;
        const bool is_escape = letter != std::u16string_view::npos;
        result += is_escape ? meanings[letter] : units[i];
        i += is_escape ? 1 : 0;
    }
    return result;
}

/// The one unit that an option gives, or `if_empty`.
char16_t single_unit(const char* option, const std::string& text, char16_t if_empty) {
    const std::u16string units = unescaped(text);
    if (units.size() > 1) {
        throw UserError(fmt::format("{}: '{}' is more than one character", option, text));
    }
    return units.empty() ? if_empty : units.front();
}

void apply_marks(const Texts& texts, Settings& settings) {
    auto& options = settings.options;
    auto& type_options = settings.type_options;
    if (texts.quote) {
        options.quote = single_unit("--quote", *texts.quote, u'\0');
    }
    if (texts.decimal) {
        type_options.decimal_separator = single_unit("--decimal", *texts.decimal, u'.');
        options.excluded_delimiter.assign(1, type_options.decimal_separator);
    }
    if (texts.thousands) {
        type_options.thousands_separator = single_unit("--thousands", *texts.thousands, u'\0');
    }
    if (texts.excluded_delimiter) {
        const char16_t unit = single_unit("--exclude-delimiter", *texts.excluded_delimiter, u'\0');
        options.excluded_delimiter.assign(texts.excluded_delimiter->empty() ? 0 : 1, unit);
    }
    if (texts.whitespace) {
        options.whitespace = type_options.whitespace = unescaped(*texts.whitespace);
    }
    for (const std::string& text : texts.missing) {
        type_options.treat_as_missing.push_back(to_utf16(text));
    }
}

void apply_layout(const Texts& texts, Settings& settings) {
    auto& options = settings.options;
    const bool has_widths = !options.field_widths.empty();
    const std::string layout = texts.layout.value_or(has_widths ? "fixed" : "open");
    if (has_widths && layout != "fixed") {
        throw UserError(fmt::format("--widths does not go with --layout {}", layout));
    }
    options.layout_hint = layout == "fixed"      ? textio::parser::layout::fixed_width
                          : layout == "no-fixed" ? textio::parser::layout::no_fixed_width
                                                 : textio::parser::layout::open;
    if (texts.header_lines) {
        options.header_lines = *texts.header_lines;
        options.detect_header_lines = false;
    }
    if (texts.expected_variables) {
        options.expected_variables = *texts.expected_variables;
        options.skip_variable_count_rule = false;
    }
}

void apply_comments(const Texts& texts, Settings& settings) {
    auto& style = settings.options.comment_style;
    if (texts.no_comments || texts.comment) {
        style.clear();
    }
    for (const auto& text : {texts.comment, texts.comment_end}) {
        if (text) {
            style.push_back(unescaped(*text));
        }
    }
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
    Texts texts;
    CLI::App app("Works out how tabular texts are laid out.", "detect_layout");
    app.footer(examples);
    app.set_version_flag("--version", "detect_layout " TEXTIO_VERSION_STRING);
    app.add_option("input", settings.inputs, "Files; - for standard input")->type_name("FILE");
    app.allow_extras(); // to be told more of than that they were not expected
    declare_output(app, settings);
    declare_knowledge(app, settings, texts);
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
    apply_comments(texts, settings);
    apply_marks(texts, settings);
    apply_layout(texts, settings);
    settings.encoding = texts.encoding ? known_character_set(*texts.encoding) : "";
    return settings;
}

} // namespace detect_layout
