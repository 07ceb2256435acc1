#include "option_texts.hpp"

#include "character_set.hpp"
#include "unicode.hpp"
#include "user_error.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

namespace detect_layout {

namespace {

using textio::enums::StrategyMode;

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

void apply_marks(const OptionTexts& texts, Settings& settings) {
    auto& options = settings.options;
    auto& type_options = settings.type_options;
    auto& known = settings.known;
    if (texts.quote) {
        known.quote = options.quote = single_unit("--quote", *texts.quote, u'\0');
    }
    if (texts.decimal) {
        type_options.decimal_separator = single_unit("--decimal", *texts.decimal, u'.');
        options.excluded_delimiter.assign(1, type_options.decimal_separator);
        known.decimal_mark = type_options.decimal_separator;
    }
    if (texts.thousands) {
        type_options.thousands_separator = single_unit("--thousands", *texts.thousands, u'\0');
        known.thousands_separator = type_options.thousands_separator;
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

/// The layout that `name` stands for; nothing where several may be.
std::optional<StrategyMode> layout_named(std::string_view name) {
    return name == "fixed"       ? std::optional(StrategyMode::fixed_width)
           : name == "delimited" ? std::optional(StrategyMode::delimited)
           : name == "aligned"   ? std::optional(StrategyMode::space_aligned)
           : name == "lines"     ? std::optional(StrategyMode::line_reader)
                                 : std::nullopt;
}

/// What the user says of the layout implies a kind of layout, which must not be two.
std::string layout_asked_for(const OptionTexts& texts) {
    const std::string implied = !texts.widths.empty() ? "fixed"
                                : texts.delimiter     ? "delimited"
                                                      : "open";
    std::string layout = texts.layout.value_or(implied);
    if (implied != "open" && layout != implied) {
        throw UserError(fmt::format("{} does not go with --layout {}",
                                    texts.delimiter ? "--delimiter" : "--widths", layout));
    }
    return layout;
}

void apply_layout(const OptionTexts& texts, Settings& settings) {
    auto& options = settings.options;
    auto& known = settings.known;
    const std::string layout = layout_asked_for(texts);
    const auto mode = layout_named(layout);
    if (settings.rules && mode && *mode != StrategyMode::fixed_width) {
        throw UserError(fmt::format("--rules cannot be told --layout {}", layout));
    }
    known.layout = mode;
    options.layout_hint = layout == "fixed"      ? textio::parser::layout::fixed_width
                          : layout == "no-fixed" ? textio::parser::layout::no_fixed_width
                                                 : textio::parser::layout::open;
    if (!texts.widths.empty()) {
        options.field_widths = texts.widths;
        known.widths = texts.widths;
    }
    if (texts.delimiter) {
        known.delimiter = unescaped(*texts.delimiter);
        if (known.delimiter->empty()) {
            throw UserError("--delimiter: is empty");
        }
    }
    if (texts.expected_variables) {
        options.expected_variables = *texts.expected_variables;
        options.skip_variable_count_rule = false;
    }
}

void apply_table_start(const OptionTexts& texts, Settings& settings) {
    auto& known = settings.known;
    known.first_data_line = texts.header_lines;
    if (texts.first_data_line) {
        if (*texts.first_data_line == 0) {
            throw UserError("--first-data-line: the first line is 1");
        }
        known.first_data_line = *texts.first_data_line - 1;
    }
    if (known.first_data_line) {
        settings.options.header_lines = *known.first_data_line;
        settings.options.detect_header_lines = false;
    }
    if (texts.names_line) {
        known.names_line = *texts.names_line == 0 ? textio::advice::no_line : *texts.names_line - 1;
    }
}

void apply_comments(const OptionTexts& texts, Settings& settings) {
    if (!texts.no_comments && !texts.comment) {
        return;
    }
    std::vector<std::u16string> style;
    for (const auto& text : {texts.comment, texts.comment_end}) {
        if (text) {
            style.push_back(unescaped(*text));
        }
    }
    settings.options.comment_style = style;
    settings.known.comment_style = std::move(style);
}

} // namespace

void apply(const OptionTexts& texts, Settings& settings) {
    apply_comments(texts, settings);
    apply_marks(texts, settings);
    apply_layout(texts, settings);
    apply_table_start(texts, settings);
    settings.encoding = texts.encoding ? known_character_set(*texts.encoding) : "";
    settings.known.options.whitespace = settings.options.whitespace;
    settings.known.type_options = settings.type_options;
}

} // namespace detect_layout
