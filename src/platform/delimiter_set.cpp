#include "textio/platform/delimiter_set.hpp"

#include <algorithm>

namespace textio {

namespace {

std::vector<std::u16string> distinct_longest_first(const std::vector<std::u16string>& strings) {
    std::vector<std::u16string> kept;
    kept.reserve(strings.size());
    for (const std::u16string& string : strings) {
        if (!string.empty() && std::find(kept.begin(), kept.end(), string) == kept.end()) {
            kept.push_back(string);
        }
    }
    std::stable_sort(kept.begin(), kept.end(), [](const auto& left, const auto& right) {
        return left.size() > right.size();
    });
    return kept;
}

std::u16string first_units_of(const std::vector<std::u16string>& strings) {
    std::u16string units;
    units.reserve(strings.size());
    for (const std::u16string& string : strings) {
        units.push_back(string.front());
    }
    std::sort(units.begin(), units.end());
    units.erase(std::unique(units.begin(), units.end()), units.end());
    return units;
}

} // namespace

std::size_t Delim::match_any(const Field& text, std::size_t position,
                             char16_t unit) const noexcept {
    if (std::find(first_units.begin(), first_units.end(), unit) == first_units.end()) {
        return 0;
    }
    const std::u16string_view rest =
        text.view().substr(position < text.size ? position : text.size);
    for (const std::u16string& string : strings) {
        if (rest.starts_with(string)) {
            return string.size();
        }
    }
    return 0;
}

std::shared_ptr<Delim> get_or_create_delim(const std::vector<std::u16string>& strings) {
    auto set = std::make_shared<Delim>();
    set->strings = distinct_longest_first(strings);
    set->first_unit_storage = first_units_of(set->strings);
    if (!set->strings.empty()) {
        set->first_units = set->first_unit_storage;
    }
    set->single = set->strings.size() == 1 && set->strings.front().size() == 1;
    if (set->single) {
        set->only_string = set->strings.front();
    }
    return set;
}

} // namespace textio
