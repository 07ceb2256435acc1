#include "search/boundary_scanner.hpp"

namespace textio::parser {

Boundary find_boundary(const UnitSearch& stops, const GuardedDelim& ends,
                       const GuardedDelim* barriers, const Field& text, std::size_t from) noexcept {
    for (std::size_t at = from; text.unit_at(at) != end_of_text; ++at) {
        at = stops.next(text, at);
        if (text.unit_at(at) == end_of_text ||
            (barriers != nullptr && barriers->match_at(text, at) != 0)) {
            return {at, 0};
        }
        if (const std::size_t length = ends.match_at(text, at); length != 0) {
            return {at, length};
        }
        from = at + 1;
    }
    return {from, 0};
}

} // namespace textio::parser
