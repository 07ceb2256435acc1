#include "c/hints.hpp"
#include "c/status.hpp"

#include <utility>

namespace textio::c {

using enums::StrategyMode;
using zentor::io::text::typedetection::TypeAnalyzerOptions;

namespace {

void refuse_if(bool contradicts, const char* complaint) {
    if (contradicts) {
        throw Failure{TEXTIO_BAD_VALUE, complaint};
    }
}

/// Whether a kind was said that is not `implied`.
bool is_other_kind(const textio_hints& hints, StrategyMode implied) {
    return hints.kind.value_or(implied) != implied;
}

std::optional<std::vector<std::u16string>> comment_style_of(const textio_hints& hints) {
    if (!hints.comment) {
        return std::nullopt;
    }
    std::vector<std::u16string> style;
    if (!hints.comment->empty()) {
        style.push_back(*hints.comment);
        if (hints.comment_end && !hints.comment_end->empty()) {
            style.push_back(*hints.comment_end);
        }
    }
    return style;
}

TypeAnalyzerOptions type_options_of(const textio_hints& hints) {
    TypeAnalyzerOptions options;
    options.decimal_separator = hints.decimal.value_or(options.decimal_separator);
    options.thousands_separator = hints.thousands.value_or(options.thousands_separator);
    options.whitespace = hints.whitespace.value_or(options.whitespace);
    options.treat_as_missing = hints.missing.value_or(options.treat_as_missing);
    return options;
}

} // namespace

void check(const textio_hints& hints) {
    const bool has_comment = hints.comment && !hints.comment->empty();
    refuse_if(hints.comment_end && !hints.comment_end->empty() && !has_comment,
              "comment_end: there is no comment to end");
    refuse_if(hints.delimiter && hints.widths, "delimiter: does not go with widths");
    refuse_if(hints.delimiter && is_other_kind(hints, StrategyMode::delimited),
              "delimiter: does not go with this kind");
    refuse_if(hints.widths && is_other_kind(hints, StrategyMode::fixed_width),
              "widths: do not go with this kind");
    if (hints.method == Method::rules) {
        refuse_if(hints.delimiter.has_value(), "delimiter: the rules cannot be told of it");
        refuse_if(hints.names_line.has_value(), "names_line: the rules cannot be told of it");
        refuse_if(is_other_kind(hints, StrategyMode::fixed_width),
                  "kind: the rules can be told of fixed_width alone");
    }
}

advice::Settings settings_of(const textio_hints& hints) {
    advice::Settings settings;
    settings.options.whitespace = hints.whitespace.value_or(settings.options.whitespace);
    settings.type_options = type_options_of(hints);
    settings.layout = hints.kind;
    settings.delimiter = hints.delimiter;
    settings.widths = hints.widths;
    settings.quote = hints.quote;
    settings.comment_style = comment_style_of(hints);
    settings.decimal_mark = hints.decimal;
    settings.thousands_separator = hints.thousands;
    settings.first_data_line = hints.first_data_line;
    settings.names_line = hints.names_line;
    return settings;
}

RulesSettings rules_settings_of(const textio_hints& hints) {
    RulesSettings settings;
    parser::options& options = settings.options;
    settings.type_options = type_options_of(hints);
    options.whitespace = settings.type_options.whitespace;
    options.quote = hints.quote.value_or(options.quote);
    options.comment_style = comment_style_of(hints).value_or(options.comment_style);
    options.excluded_delimiter.assign(1, settings.type_options.decimal_separator);
    if (hints.widths || hints.kind) {
        options.layout_hint = parser::layout::fixed_width;
        options.field_widths = hints.widths.value_or(options.field_widths);
    }
    if (hints.first_data_line) {
        options.header_lines = *hints.first_data_line;
        options.detect_header_lines = false;
    }
    return settings;
}

} // namespace textio::c
