/// \file
/// Records of several kinds, each told by the short code that begins it.
#pragma once

#include "advice/cell_kind.hpp"
#include "textio/field.hpp"

#include <cstddef>

namespace textio::advice {

/// What the rows of a sample that begin with a code look like. Such rows keep no common width: each
/// kind of record has fields of its own.
struct TaggedRecords {
    std::size_t first_line = 0; ///< line of the sample with the first of them
    std::size_t tagged = 0;     ///< rows of two fields or more that begin with a code
    std::size_t rows = 0;       ///< rows of the sample
    std::size_t kinds = 0;      ///< different codes, as far as they were counted
    std::size_t widest = 0;     ///< most fields of such a row
    double types = 0;           ///< mean weight of their cells
    bool starts_text = false;   ///< the first row is one of them

    /// Whether the codes are those of record kinds: they alternate, and come again or end alike.
    [[nodiscard]] bool are_records(bool lines_end_alike) const noexcept;
};

[[nodiscard]] TaggedRecords find_tagged_records(const FieldArray& sample, CellJudge& judge);

/// Whether nearly all lines of a sample end with the same sign, as segments of messages do.
[[nodiscard]] bool lines_end_alike(const FieldArray& lines);

} // namespace textio::advice
