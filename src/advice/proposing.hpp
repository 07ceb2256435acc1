/// \file
/// Makes proposals of graded readings.
#pragma once

#include "advice/cell_kind.hpp"
#include "advice/reading.hpp"
#include "textio/advice.hpp"
#include "textio/field.hpp"

#include <cstddef>
#include <string_view>

namespace textio::advice {

/// What a proposal is made from beside its reading.
struct ProposalSources {
    output::DetectionOutputBuilder* builder = nullptr; ///< reads the text once more
    const Settings* settings = nullptr;
    const parser::options* options = nullptr; ///< under which the readings were made
    const FieldArray* lines = nullptr;        ///< one field a line, with their comments
    const FieldArray* raw_lines = nullptr;    ///< one field a line, without comments
    CellMemory* memory = nullptr;
};

/// Finds where the table of a reading begins, what its columns are, and which options read it.
/// Reads the text once more where these differ from those of the reading.
[[nodiscard]] Proposal make_proposal(const Reading& reading, const ProposalSources& sources);

} // namespace textio::advice
