#include "search/guarded_delim.hpp"

#include <algorithm>
#include <utility>

namespace textio::parser {

namespace {

/// `end_of_text` is left out: whether it matches depends on what is left of the text.
std::u16string units_that_match_alone(const Delim& delim) {
    std::u16string units;
    for (const char16_t unit : delim.first_units) {
        const bool is_alone =
            std::none_of(delim.strings.begin(), delim.strings.end(), [unit](const auto& string) {
                return string.size() > 1 && string.front() == unit;
            });
        if (is_alone && unit != end_of_text) {
            units.push_back(unit);
        }
    }
    return units;
}

} // namespace

GuardedDelim::GuardedDelim(std::shared_ptr<Delim> delim)
    : delim_(std::move(delim)),
      first_units_(std::u16string(delim_->first_units.begin(), delim_->first_units.end())),
      lone_units_(units_that_match_alone(*delim_)) {}

} // namespace textio::parser
