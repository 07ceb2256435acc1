#include "known_options.hpp"

#include "user_error.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <vector>

namespace detect_layout {

namespace {

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

void declare_layout(CLI::App& app, OptionTexts& texts) {
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
        ->group(group);
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

const CLI::Validator& no_sign() {
    static const CLI::Validator validator(
        [](const std::string& text) {
            return text.starts_with('-') ? fmt::format("'{}' is no count", text) : std::string();
        },
        "");
    return validator;
}

void declare_known_options(CLI::App& app, Settings& settings, OptionTexts& texts) {
    declare_reading(app, settings, texts);
    declare_layout(app, texts);
}

std::string parse(CLI::App& app, int count, const char* const* arguments) {
    app.allow_extras(); // to be told more of than that they were not expected
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& help) {
        std::ostringstream text;
        app.exit(help, text, text);
        return text.str();
    } catch (const CLI::ParseError& error) {
        throw UserError(joined_lines(error.what()));
    }
    refuse_extras(app.remaining());
    return {};
}

} // namespace detect_layout
