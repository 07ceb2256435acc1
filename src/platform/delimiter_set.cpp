#include "textio/platform/delimiter_set.hpp"

#include <algorithm>
#include <numeric>

namespace textio {

namespace {

/// Up to so many strings are compared one after the other.
constexpr std::size_t few_strings = 8;

constexpr std::size_t no_place = SIZE_MAX;

/// The strings that are not empty, each once, longer ones first and else in their given order.
std::vector<std::u16string> few_longest_first(const std::vector<std::u16string>& strings) {
    std::vector<std::u16string> kept;
    kept.reserve(strings.size());
    for (const std::u16string& string : strings) {
        if (!string.empty() && std::find(kept.begin(), kept.end(), string) == kept.end()) {
            const auto shorter =
                std::find_if(kept.begin(), kept.end(), [&string](const std::u16string& other) {
                    return other.size() < string.size();
                });
            kept.insert(shorter, string);
        }
    }
    return kept;
}

/// The same at a cost that stays in bounds for a list of any length: what is sorted are indexes.
std::vector<std::u16string> many_longest_first(const std::vector<std::u16string>& strings) {
    std::vector<std::size_t> order(strings.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto compare = [&strings](std::size_t a, std::size_t b, bool looks_at_text) {
        if (strings[a].size() != strings[b].size()) {
            return strings[a].size() > strings[b].size();
        }
        const int difference = looks_at_text ? strings[a].compare(strings[b]) : 0;
        return difference != 0 ? difference < 0 : a < b;
    };
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return compare(a, b, true); });
    order.erase(std::unique(order.begin(), order.end(),
                            [&](std::size_t a, std::size_t b) { return strings[a] == strings[b]; }),
                order.end());
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return compare(a, b, false); });

    std::vector<std::u16string> kept;
    kept.reserve(order.size());
    for (const std::size_t index : order) {
        if (!strings[index].empty()) {
            kept.push_back(strings[index]);
        }
    }
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

std::size_t common_units(std::u16string_view a, std::u16string_view b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first -
                                    a.begin());
}

} // namespace

/// Looks for the longest string that `rest` begins with. Let `s` be the last string, in sorted
/// order, that does not come behind `rest`. The string looked for is `s`, or a beginning of `s`,
/// for all that stands between the two in that order begins with it too. So the search goes from
/// `s` to ever shorter beginnings of it, until one fits.
std::size_t Delim::match_many(std::u16string_view rest) const noexcept {
    const auto behind = std::upper_bound(
        ascending_.begin(), ascending_.end(), rest,
        [this](std::u16string_view text, std::size_t index) { return text < strings[index]; });
    if (behind == ascending_.begin()) {
        return 0;
    }
    auto place = static_cast<std::size_t>(behind - ascending_.begin()) - 1;
    const std::size_t common = common_units(strings[ascending_[place]], rest);
    while (place != no_place && strings[ascending_[place]].size() > common) {
        place = beginnings_[place];
    }
    return place == no_place ? 0 : strings[ascending_[place]].size();
}

std::size_t Delim::match_any(const Field& text, std::size_t position,
                             char16_t unit) const noexcept {
    const std::u16string_view rest =
        text.view().substr(position < text.size ? position : text.size);
    if (!ascending_.empty()) {
        return std::binary_search(first_units.begin(), first_units.end(), unit) ? match_many(rest)
                                                                                : 0;
    }
    if (std::find(first_units.begin(), first_units.end(), unit) == first_units.end()) {
        return 0;
    }
    for (const std::u16string& string : strings) {
        if (rest.starts_with(string)) {
            return string.size();
        }
    }
    return 0;
}

void Delim::sort_strings() {
    ascending_.resize(strings.size());
    std::iota(ascending_.begin(), ascending_.end(), std::size_t{0});
    std::sort(ascending_.begin(), ascending_.end(),
              [this](std::size_t a, std::size_t b) { return strings[a] < strings[b]; });
    beginnings_.reserve(strings.size());
    std::size_t beginning = no_place;
    for (const std::size_t index : ascending_) {
        while (beginning != no_place &&
               !strings[index].starts_with(strings[ascending_[beginning]])) {
            beginning = beginnings_[beginning];
        }
        beginnings_.push_back(beginning);
        beginning = beginnings_.size() - 1;
    }
}

std::shared_ptr<Delim> get_or_create_delim(const std::vector<std::u16string>& strings) {
    auto set = std::make_shared<Delim>();
    const bool are_few = strings.size() <= few_strings;
    set->strings = (are_few ? few_longest_first : many_longest_first)(strings);
    if (!set->strings.empty()) {
        set->first_unit_storage = first_units_of(set->strings);
        set->first_units = set->first_unit_storage;
    }
    if (set->strings.size() > few_strings) {
        set->sort_strings();
    }
    set->single = set->strings.size() == 1 && set->strings.front().size() == 1;
    if (set->single) {
        set->only_string = set->strings.front();
    }
    return set;
}

} // namespace textio
