#include "parser/boundary_scanner.hpp"

#include <utility>

namespace textio::parser {

BoundaryScanner::BoundaryScanner(std::shared_ptr<Delim> ends_set,
                                 std::shared_ptr<Delim> barriers_set)
    : ends(std::move(ends_set)), barriers(std::move(barriers_set)), guarded_ends_(ends),
      guarded_barriers_(barriers), lone_end_(find_lone_end()) {
    stop_units =
        UnitSet(guarded_ends_.first_units().units() + guarded_barriers_.first_units().units())
            .units();
    search = UnitSearch(stop_units);
}

BoundaryScanner::BoundaryScanner(const std::vector<std::u16string>& end_strings,
                                 const std::vector<std::u16string>& barrier_strings)
    : BoundaryScanner(get_or_create_delim(end_strings), get_or_create_delim(barrier_strings)) {}

std::uint32_t BoundaryScanner::find_lone_end() const noexcept {
    if (!ends->single) {
        return no_lone_end;
    }
    const char16_t unit = ends->only_string.front();
    const bool may_be_barrier = guarded_barriers_.first_units().contains(unit);
    return unit == end_of_text || may_be_barrier ? no_lone_end : unit;
}

Boundary BoundaryScanner::judge_stop(const Field& text, std::size_t stop) const noexcept {
    while (text.unit_at(stop) != end_of_text && guarded_barriers_.match_at(text, stop) == 0) {
        if (const std::size_t length = guarded_ends_.match_at(text, stop); length != 0) {
            return {stop, length};
        }
        ++stop;
        if (text.unit_at(stop) != end_of_text) {
            stop = search.next(text, stop);
        }
    }
    return {stop, 0};
}

} // namespace textio::parser
