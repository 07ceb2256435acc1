#include "layout_diff.hpp"

#include "advice_report.hpp"
#include "advice_words.hpp"
#include "column_diff.hpp"
#include "layout_names.hpp"
#include "unicode.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <string_view>

namespace detect_layout {

namespace {

using textio::advice::Proposal;
using textio::enums::StrategyMode;

/// What is compared: a name and what an input has; an empty text goes with any other.
struct Trait {
    std::string_view name;
    std::string value;
};

std::string quote_of(const Proposal& proposal) {
    const char16_t quote = proposal.strategy->options().quote;
    return has_quotes(*proposal.strategy) ? to_utf8({&quote, 1}) : "";
}

std::string comment_of(const Proposal& proposal) {
    std::vector<std::string> parts;
    for (const std::u16string& text : proposal.strategy->options().comment_style) {
        parts.push_back(to_utf8(text));
    }
    return parts.empty() ? "none" : fmt::format("{}", fmt::join(parts, " "));
}

std::string mark_of(char16_t mark) {
    return mark == 0 ? "" : mark_name(mark);
}

std::string names_place(const Proposal& proposal) {
    return proposal.names_line == textio::advice::no_line
               ? "none"
               : fmt::format("line {}", proposal.names_line + 1);
}

/// Text in ASCII is the same in all sets but those of several bytes a character.
std::string character_set_of(const TextInput& input) {
    const auto text = input.text().view();
    const std::string& name = input.character_set().name;
    const bool is_wide = name.starts_with("UTF-16") || name.starts_with("UTF-32");
    const bool is_ascii =
        std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
    return is_ascii && !is_wide ? "" : name;
}

std::string line_endings_of(std::u16string_view text) {
    std::vector<std::string_view> kinds;
    const auto add = [&kinds](std::string_view kind) {
        if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) {
            kinds.push_back(kind);
        }
    };
    for (std::size_t at = text.find_first_of(u"\r\n"); at != std::u16string_view::npos;
         at = text.find_first_of(u"\r\n", at + 1)) {
        const bool is_pair = text.substr(at).starts_with(u"\r\n");
        add(is_pair ? "CR LF" : text[at] == u'\r' ? "CR" : "LF");
        at += is_pair ? 1 : 0;
    }
    std::sort(kinds.begin(), kinds.end());
    return fmt::format("{}", fmt::join(kinds, " and "));
}

std::vector<Trait> traits_of(const Advised& advised) {
    const Proposal& best = advised.best();
    return {
        {"layout", layout_phrase(*best.strategy)},
        {"quote", quote_of(best)},
        {"comments", comment_of(best)},
        {"decimal mark", mark_of(best.decimal_mark)},
        {"thousands separator", mark_of(best.thousands_separator)},
        {"names", names_place(best)},
        {"data", fmt::format("from line {}", best.first_data_line + 1)},
        {"character set", character_set_of(*advised.input)},
        {"line endings", line_endings_of(advised.input->text().view())},
    };
}

} // namespace

std::vector<std::string> layout_differences(const Advised& before, const Advised& after) {
    std::vector<std::string> lines;
    const auto old_traits = traits_of(before);
    const auto new_traits = traits_of(after);
    for (std::size_t i = 0; i < old_traits.size(); ++i) {
        const auto& [name, was] = old_traits[i];
        const std::string& is = new_traits[i].value;
        if (was != is && !was.empty() && !is.empty()) {
            lines.push_back(fmt::format("{}: {} -> {}", name, was, is));
        }
    }
    const auto columns = column_differences(before.best(), after.best());
    lines.insert(lines.end(), columns.begin(), columns.end());
    return lines;
}

} // namespace detect_layout
