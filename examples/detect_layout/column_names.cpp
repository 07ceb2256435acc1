#include "column_names.hpp"

#include "unicode.hpp"

#include <fmt/format.h>

#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace detect_layout {

namespace {

/// The name of a column as the text has it, which may double the quotes inside of quotes.
std::string own_name(std::u16string_view name, char16_t quote) {
    const std::u16string doubled(2, quote);
    std::u16string text(name);
    for (std::size_t at = text.find(doubled); quote != 0 && at != std::u16string::npos;
         at = text.find(doubled, at + 1)) {
        text.erase(at, 1);
    }
    return to_utf8(text);
}

} // namespace

std::string name_of_unnamed(std::size_t index) {
    return fmt::format("column_{}", index + 1);
}

std::vector<std::string> column_names(const textio::advice::Proposal& proposal) {
    const char16_t quote = proposal.strategy->options().quote;
    std::vector<std::string> names;
    std::set<std::string> taken; // the columns' own names come first
    for (const auto& column : proposal.columns) {
        taken.insert(own_name(column.name, quote));
    }
    std::map<std::string, std::size_t> uses;
    for (std::size_t i = 0; i < proposal.columns.size(); ++i) {
        const std::string own = own_name(proposal.columns[i].name, quote);
        const std::string wanted = own.empty() ? name_of_unnamed(i) : own;
        std::size_t& number = uses[wanted];
        const bool is_its_own = !own.empty() && number == 0;
        std::string name = wanted;
        ++number;
        while (!is_its_own && !taken.insert(name).second) {
            name = fmt::format("{}_{}", wanted, ++number);
        }
        names.push_back(std::move(name));
    }
    return names;
}

} // namespace detect_layout
