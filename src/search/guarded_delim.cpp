#include "search/guarded_delim.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace textio::parser {

namespace {

/// `end_of_text` is left out: whether it matches depends on what is left of the text.
std::u16string units_that_match_alone(const Delim& delim) {
    std::u16string starts_of_longer;
    for (const std::u16string& string : delim.strings) {
        if (string.size() > 1) {
            starts_of_longer.push_back(string.front());
        }
    }
    const UnitSet not_alone(starts_of_longer);
    std::u16string units;
    std::copy_if(
        delim.first_units.begin(), delim.first_units.end(), std::back_inserter(units),
        [&not_alone](char16_t unit) { return !not_alone.contains(unit) && unit != end_of_text; });
    return units;
}

} // namespace

GuardedDelim::GuardedDelim(const std::shared_ptr<Delim>& delim)
    : strings_(delim),
      first_units_(std::u16string(delim->first_units.begin(), delim->first_units.end())),
      lone_units_(units_that_match_alone(*delim)) {}

} // namespace textio::parser
