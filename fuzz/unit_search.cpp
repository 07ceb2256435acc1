// The search that all reading stands on, beside the plain loop.
#include "search/unit_search.hpp"
#include "input.hpp"
#include "search/search_walk.hpp"
#include "support/plain_search.hpp"

namespace {

using namespace textio::parser;
using fuzz::require;
using textio::Field;

/// The first edge at or behind `at` that a walk from `from` gives, found by looking at one unit
/// after the other.
std::size_t plain_edge(const UnitSet& stops, const UnitSet& delimiters, const Field& text,
                       std::size_t from, std::size_t at) {
    for (; at < text.size; ++at) {
        const bool is_delimiter = delimiters.contains(text.data[at]);
        const bool is_behind_delimiter = at > from && delimiters.contains(text.data[at - 1]);
        if (is_delimiter != is_behind_delimiter ||
            (!is_delimiter && stops.contains(text.data[at]))) {
            break;
        }
    }
    return std::min(at, text.size);
}

/// Walks along the edges where the first half of `units` are delimiters.
void check_edges(const std::u16string& units, const Field& text, fuzz::Input& input) {
    const std::u16string delimiter_units = units.substr(0, units.size() / 2);
    const UnitSearch stops(units);
    const UnitSearch others(delimiter_units, UnitSearch::Wanted::outside);
    const UnitSet delimiters(delimiter_units);
    RunWalk walk({stops, others}, text.data, text.data + text.size);
    for (std::size_t from = 0; from <= text.size; from += input.byte() % 80U) {
        std::size_t edge = plain_edge(stops.set(), delimiters, text, from, from);
        require(walk.next(text.data + from) == text.data + edge, "a walk finds an edge");
        for (std::uint8_t more = input.byte() % 8; more > 0 && edge < text.size; --more) {
            edge = plain_edge(stops.set(), delimiters, text, from, edge + 1);
            require(walk.next() == text.data + edge, "a walk finds the next edge");
        }
        from = edge + (input.byte() == 0 ? 1 : 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    std::u16string units;
    for (std::uint8_t count = input.byte() % 16; count > 0; --count) {
        units.push_back(input.unit(u'a'));
    }
    const fuzz::Text held = input.text();
    const std::size_t offset = std::min<std::size_t>(input.byte() % 32U, held.field().size);
    const Field text(held.field().data + offset, held.field().size - offset);

    const UnitSet set(units);
    require(std::ranges::is_sorted(set.units()), "the units of a set ascend");
    const UnitSearch inside(units);
    const UnitSearch outside(units, UnitSearch::Wanted::outside);
    SearchWalk walk(inside, text.data, text.data + text.size);
    SearchWalk other_walk(outside, text.data, text.data + text.size);
    const char16_t* walked = text.data;
    const char16_t* other_walked = text.data;
    for (std::size_t from = 0; from <= text.size; from += 1 + input.byte() % 80U) {
        const std::size_t found = test::plain_next(set, text, from);
        const std::size_t other = test::plain_skip(set, text, from);
        require(inside.next(text, from) == found, "the next unit of the set is found");
        require(outside.next(text, from) == other, "the next unit outside the set is found");
        require(inside.skip(text, from) == other, "a run of units of the set is passed");
        require(outside.skip(text, from) == found, "a run of units outside the set is passed");
        // A walk gives each unit once.
        if (text.data + from >= walked) {
            walked = walk.next(text.data + from);
            require(walked == text.data + found, "a walk finds it");
            if (found < text.size) {
                walked = walk.next();
                require(walked == text.data + test::plain_next(set, text, found + 1),
                        "a walk finds the next");
                walked += walked == text.data + text.size ? 0 : 1;
            }
        }
        if (text.data + from >= other_walked) {
            other_walked = other_walk.next(text.data + from);
            require(other_walked == text.data + other, "a walk finds it");
            other_walked += other == text.size ? 0 : 1;
        }
    }
    check_edges(units, text, input);
    return 0;
}
