#include "search/boundary_scanner.hpp"

#include <utility>

namespace textio::parser {

namespace {

std::u16string joined_first_units(const Delim& ends, const Delim& barriers) {
    std::u16string units(ends.first_units.begin(), ends.first_units.end());
    units.append(barriers.first_units.begin(), barriers.first_units.end());
    return UnitSet(units).units();
}

} // namespace

BoundaryScanner::BoundaryScanner(std::shared_ptr<Delim> ends_set,
                                 std::shared_ptr<Delim> barriers_set)
    : ends(std::move(ends_set)), barriers(std::move(barriers_set)), ends_in_text(ends),
      barriers_in_text(barriers), stop_units(joined_first_units(*ends, *barriers)),
      search(stop_units) {}

BoundaryScanner::BoundaryScanner(const std::vector<std::u16string>& end_strings,
                                 const std::vector<std::u16string>& barrier_strings)
    : BoundaryScanner(get_or_create_delim(end_strings), get_or_create_delim(barrier_strings)) {}

Boundary BoundaryScanner::find(const Field& text, std::size_t from) const noexcept {
    for (std::size_t at = from; text.unit_at(at) != end_of_text; ++at) {
        at = search.next(text, at);
        if (text.unit_at(at) == end_of_text || barriers_in_text.match_at(text, at) != 0) {
            return {at, 0};
        }
        if (const std::size_t length = ends_in_text.match_at(text, at); length != 0) {
            return {at, length};
        }
        from = at + 1;
    }
    return {from, 0};
}

} // namespace textio::parser
