// The search that all reading stands on, beside the plain loop.
#include "parser/unit_search.hpp"
#include "input.hpp"

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
    const bool remembers = input.flag(false);
    const fuzz::Text held = input.text();
    const std::size_t offset = std::min<std::size_t>(input.byte() % 32U, held.field().size);
    const Field text(held.field().data + offset, held.field().size - offset);

    const UnitSet set(units);
    require(std::ranges::is_sorted(set.units()), "the units of a set ascend");
    const UnitSearch inside(units);
    const UnitSearch outside(units, UnitSearch::Wanted::outside);
    inside.remember_block(remembers);
    outside.remember_block(remembers);
    std::size_t from = 0;
    while (from <= text.size) {
        require(inside.next(text, from) == plain_next(set, text, from),
                "the next unit of the set is found");
        require(outside.next(text, from) == skip_units(set, text, from),
                "the next unit outside the set is found");
        // Steps of any length, and now and then back.
        const std::size_t step = 1 + input.byte() % 80U;
        from = input.byte() % 16 == 15 && from > step ? from - step : from + step;
    }
    return 0;
}
