// The search that all reading stands on, beside the plain loop.
#include "parser/unit_search.hpp"
#include "input.hpp"
#include "parser/search_walk.hpp"

namespace {

using namespace textio::parser;
using fuzz::require;
using textio::Field;

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
        const std::size_t found = plain_next(set, text, from);
        const std::size_t other = plain_skip(set, text, from);
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
                require(walked == text.data + plain_next(set, text, found + 1),
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
    return 0;
}
