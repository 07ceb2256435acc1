#include "search/long_string.hpp"

#include "address.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace textio::parser {

namespace {

/// How many units from `from` on are alike in both.
std::size_t common_end(const char16_t* a, const char16_t* b, std::size_t from, std::size_t limit) {
    return static_cast<std::size_t>(std::mismatch(a + from, a + limit, b + from).first - a);
}

/// For each unit of the string, how many units from it on equal those at the beginning of the
/// string. Where a part is known to repeat the beginning, the numbers found for the beginning hold
/// for that part too, and are not found again.
std::vector<std::size_t> repeats_of(const std::u16string& units) {
    std::vector<std::size_t> repeats(units.size(), units.size());
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t at = 1; at < units.size(); ++at) {
        std::size_t known = at < end ? std::min(repeats[at - begin], end - at) : 0;
        if (at + known >= end) {
            known = common_end(units.data(), units.data() + at, known, units.size() - at);
            begin = at;
            end = at + known;
        }
        repeats[at] = known;
    }
    return repeats;
}

/// The long strings of the set; none if the set has many strings, for those are looked up in sorted
/// order and not compared one after the other.
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

LongString::LongString(std::u16string units) : units_(std::move(units)) {
    if (units_.size() >= least_units) {
        repeats_ = repeats_of(units_);
    }
}

bool LongString::stands_at(const char16_t* at, const char16_t* end) noexcept {
    if (static_cast<std::size_t>(end - at) < units_.size()) {
        return false;
    }
    if (repeats_.empty()) {
        return std::equal(units_.begin(), units_.end(), at);
    }
    std::size_t known = 0;
    if (address_of(begin_) <= address_of(at) && address_of(at) < address_of(end_)) {
        known = static_cast<std::size_t>(end_ - at);
        if (repeats_[static_cast<std::size_t>(at - begin_)] != known) {
            return false; // the text leaves the string before or where it left it the last time
        }
    }
    const std::size_t common = common_end(units_.data(), at, known, units_.size());
    begin_ = at;
    end_ = at + common;
    return common == units_.size();
}

SetInText::SetInText(std::shared_ptr<Delim> set)
    : set_(std::move(set)), long_strings_(long_strings_of(*set_)) {}

std::size_t SetInText::match_any(const Field& text, std::size_t position) const noexcept {
    const std::u16string_view rest = text.view().substr(std::min(position, text.size));
    for (LongString& string : long_strings_) {
        if (string.stands_at(rest.data(), rest.data() + rest.size())) {
            return string.size();
        }
    }
    const auto others = set_->strings.begin() + static_cast<std::ptrdiff_t>(long_strings_.size());
    const auto found =
        std::find_if(others, set_->strings.end(),
                     [rest](const std::u16string& string) { return rest.starts_with(string); });
    return found == set_->strings.end() ? 0 : found->size();
}

} // namespace textio::parser
