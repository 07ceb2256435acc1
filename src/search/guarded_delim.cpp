#include "search/guarded_delim.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>
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

/// The long strings of the set. Of many strings, none: those are looked up in their order, and not
/// compared one after the other.
std::vector<LongString> long_strings_of(const Delim& delim) {
    constexpr std::size_t few_strings = 8;
    std::vector<LongString> found;
    for (const std::u16string& string : delim.strings) {
        if (string.size() >= LongString::least_units && delim.strings.size() <= few_strings) {
            found.emplace_back(string);
        }
    }
    return found;
}

} // namespace

GuardedDelim::GuardedDelim(std::shared_ptr<Delim> delim)
    : delim_(std::move(delim)), long_strings_(long_strings_of(*delim_)),
      first_units_(std::u16string(delim_->first_units.begin(), delim_->first_units.end())),
      lone_units_(units_that_match_alone(*delim_)) {}

std::size_t GuardedDelim::match_strings(const Field& text, std::size_t position) const noexcept {
    if (long_strings_.empty()) {
        return delim_->match_at(text, position);
    }
    const std::u16string_view rest = text.view().substr(std::min(position, text.size));
    for (LongString& string : long_strings_) {
        if (string.stands_at(rest.data(), rest.data() + rest.size())) {
            return string.size();
        }
    }
    const auto others = delim_->strings.begin() + static_cast<std::ptrdiff_t>(long_strings_.size());
    const auto found =
        std::find_if(others, delim_->strings.end(),
                     [rest](const std::u16string& string) { return rest.starts_with(string); });
    return found == delim_->strings.end() ? 0 : found->size();
}

} // namespace textio::parser
