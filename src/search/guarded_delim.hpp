/// \file
/// A set of strings with a quick answer for the common case.
#pragma once

#include "search/long_string.hpp"
#include "search/unit_search.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace textio::parser {

/// Asks a set of strings only where the unit in the text does not settle the matter by itself. For
/// one text, and for one thread at a time.
class GuardedDelim {
public:
    GuardedDelim() = default; ///< a set without strings, which matches nowhere
    explicit GuardedDelim(const std::vector<std::u16string>& strings);

    /// As `Delim::match_at` of the same strings.
    [[nodiscard]] std::size_t match_at(const Field& text, std::size_t position) const noexcept {
        const char16_t unit = text.unit_at(position);
        if (!first_units_.contains(unit)) {
            return 0;
        }
        return lone_units_.contains(unit) ? 1 : strings_.match_at(text, position);
    }

    /// The units with which the strings of the set begin.
    [[nodiscard]] const UnitSet& first_units() const noexcept { return first_units_; }

    /// A unit that is a string of the set and begins no other, or `no_unit`.
    [[nodiscard]] char32_t usual_unit() const noexcept {
        return lone_units_.units().empty() ? no_unit : lone_units_.units().front();
    }

    /// Whether every string of the set is a single unit other than `end_of_text`.
    [[nodiscard]] bool only_lone_units() const noexcept {
        return lone_units_.units() == first_units_.units();
    }

    /// To be called before another text is asked.
    void forget_text() const noexcept { strings_.forget_text(); }

private:
    UnitSet first_units_;
    UnitSet lone_units_; ///< units that are a string of the set and begin no other
    SetInText strings_;  ///< unless these are all
};

/// Where a search ended, and the length of the string that it found there: 0 if it met a barrier or
/// the end of the text.
struct Boundary {
    std::size_t at;
    std::size_t length;
};

/// Searches for the next string of `ends`, but not past the next string of `barriers`, if that is
/// not null. `stops` finds the first units of both.
///
/// Gives the first boundary of `text` from `from` on. Where a string of both sets starts, the
/// barrier counts. An `end_of_text` ends the search at `from` and behind every unit that begins a
/// string of either set without being followed by the rest of it; elsewhere it is run over.
[[nodiscard]] Boundary find_boundary(const UnitSearch& stops, const GuardedDelim& ends,
                                     const GuardedDelim* barriers, const Field& text,
                                     std::size_t from) noexcept;

} // namespace textio::parser
