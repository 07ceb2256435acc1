#include "advice/heading.hpp"

#include "advice/lines.hpp"

#include <algorithm>

namespace textio::advice {

namespace {

constexpr bool is_dash(char16_t unit) {
    return holds(u"-=_", unit);
}

std::vector<std::size_t> bar_starts(std::u16string_view heading) {
    std::vector<std::size_t> starts;
    for (std::size_t at = 0; at < heading.size(); ++at) {
        if (heading[at] == u'|') {
            starts.push_back(at);
        }
    }
    return starts;
}

} // namespace

std::vector<HeadingWord> heading_words(std::u16string_view heading, std::size_t gap) {
    std::vector<HeadingWord> words;
    for (std::size_t at = 0; at < heading.size(); ++at) {
        if (is_blank(heading[at])) {
            continue;
        }
        if (words.empty() || at - words.back().end >= gap) {
            words.push_back({at, at});
        }
        words.back().end = at + 1;
    }
    return words;
}

std::vector<std::size_t> heading_starts(std::u16string_view heading) {
    if (std::count(heading.begin(), heading.end(), u'|') > 2) {
        return bar_starts(heading.substr(0, filled_length(heading) - 1));
    }
    std::vector<std::size_t> starts;
    for (const HeadingWord& word : heading_words(heading, 2)) {
        starts.push_back(word.begin);
    }
    return starts;
}

std::vector<std::size_t> ruler_starts(std::u16string_view ruler) {
    std::vector<std::size_t> starts;
    bool is_inside = false;
    for (std::size_t at = 0; at < ruler.size(); ++at) {
        const bool is_start = is_dash(ruler[at]) && !is_inside;
        is_inside = is_dash(ruler[at]);
        if (is_start) {
            starts.push_back(at);
        }
    }
    return starts;
}

} // namespace textio::advice
