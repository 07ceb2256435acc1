#include "column_diff.hpp"

#include "advice_words.hpp"
#include "column_names.hpp"

#include "textio/names.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

namespace detect_layout {

namespace {

using textio::advice::Proposal;
using zentor::io::text::typedetection::FieldClass;

/// For each column of the table before, the same one of the table after; nothing if it has gone.
using Matches = std::vector<std::optional<std::size_t>>;

Matches matches_by_name(const std::vector<std::string>& before,
                        const std::vector<std::string>& after) {
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < after.size(); ++i) {
        places.emplace(after[i], i);
    }
    Matches matches;
    for (const std::string& name : before) {
        const auto found = places.find(name);
        matches.push_back(found == places.end() ? std::nullopt : std::optional(found->second));
    }
    return matches;
}

Matches matches_by_place(std::size_t before, std::size_t after) {
    Matches matches(before);
    for (std::size_t i = 0; i < std::min(before, after); ++i) {
        matches[i] = i;
    }
    return matches;
}

std::vector<bool> matched_columns(const Matches& matches, std::size_t after) {
    std::vector<bool> is_matched(after);
    for (const auto& match : matches) {
        if (match) {
            is_matched[*match] = true;
        }
    }
    return is_matched;
}

/// Columns that have gone and columns that are new between the same neighbours are the same under
/// another name, in their order.
void match_renamed(Matches& matches, std::vector<bool>& is_matched) {
    std::optional<std::size_t> next = 0; // the first column behind the neighbour
    for (auto& match : matches) {
        if (match) {
            next = *match + 1;
        } else if (next && *next < is_matched.size() && !is_matched[*next]) {
            match = next;
            is_matched[*next] = true;
            ++*next;
        } else {
            next.reset();
        }
    }
}

/// The longest row of columns that stand in the same order in both tables; all others have moved.
std::vector<bool> columns_in_order(const Matches& matches) {
    constexpr std::size_t none = SIZE_MAX;
    std::vector<std::size_t> tails; // of the best row of each length, the column before
    std::vector<std::size_t> previous(matches.size(), none);
    for (std::size_t i = 0; i < matches.size(); ++i) {
        if (!matches[i]) {
            continue;
        }
        const auto at = std::lower_bound(
            tails.begin(), tails.end(), *matches[i],
            [&](std::size_t tail, std::size_t place) { return *matches[tail] < place; });
        previous[i] = at == tails.begin() ? none : *std::prev(at);
        if (at == tails.end()) {
            tails.push_back(i);
        } else {
            *at = i;
        }
    }
    std::vector<bool> is_in_order(matches.size());
    for (std::size_t i = tails.empty() ? none : tails.back(); i != none; i = previous[i]) {
        is_in_order[i] = true;
    }
    return is_in_order;
}

/// What is different about a column that both tables have.
void compare(const Proposal& before, std::size_t i, const Proposal& after, std::size_t match,
             const std::string& name, std::vector<std::string>& lines) {
    const FieldClass was = before.columns[i].type;
    const FieldClass is = after.columns[match].type;
    if (was != is && was != FieldClass::unknown && is != FieldClass::unknown) {
        lines.push_back(fmt::format("values of '{}': {} -> {}", name, textio::name_of(was),
                                    textio::name_of(is)));
    }
}

bool has_names(const Proposal& proposal) {
    return proposal.names_line != textio::advice::no_line;
}

} // namespace

std::vector<std::string> column_differences(const Proposal& before, const Proposal& after) {
    const auto old_names = column_names(before);
    const auto new_names = column_names(after);
    const bool by_name = has_names(before) && has_names(after);
    Matches matches = by_name ? matches_by_name(old_names, new_names)
                              : matches_by_place(old_names.size(), new_names.size());
    const std::vector<bool> is_in_order = columns_in_order(matches);
    auto is_matched = matched_columns(matches, new_names.size());
    match_renamed(matches, is_matched);
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < old_names.size(); ++i) {
        const std::string& name = old_names[i];
        if (!matches[i]) {
            lines.push_back(fmt::format("column removed: '{}', was {}", name, i + 1));
            continue;
        }
        const std::size_t match = *matches[i];
        if (by_name && name != new_names[match]) {
            lines.push_back(
                fmt::format("column {} renamed: '{}' -> '{}'", match + 1, name, new_names[match]));
        } else if (!is_in_order[i]) {
            lines.push_back(fmt::format("column moved: '{}', {} -> {}", name, i + 1, match + 1));
        }
        compare(before, i, after, match, new_names[match], lines);
    }
    for (std::size_t i = 0; i < new_names.size(); ++i) {
        if (!is_matched[i]) {
            lines.push_back(fmt::format("column added: '{}', is {}", new_names[i], i + 1));
        }
    }
    return lines;
}

} // namespace detect_layout
