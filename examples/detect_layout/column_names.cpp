#include "column_names.hpp"

#include "unicode.hpp"

#include <fmt/format.h>

#include <cstddef>
#include <map>
#include <set>
#include <utility>

namespace detect_layout {

std::string name_of_unnamed(std::size_t index) {
    return fmt::format("column_{}", index + 1);
}

std::vector<std::string> column_names(const textio::advice::Proposal& proposal) {
    const char16_t quote = proposal.strategy->options().quote;
    std::vector<std::string> names;
    std::set<std::string> taken; // the columns' own names come first
    for (const auto& column : proposal.columns) {
        taken.insert(to_utf8(column_name(column, quote)));
    }
    std::map<std::string, std::size_t> uses;
    for (std::size_t i = 0; i < proposal.columns.size(); ++i) {
        const std::string own = to_utf8(column_name(proposal.columns[i], quote));
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
