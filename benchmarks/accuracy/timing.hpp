/// \file
/// What an answer of each door costs.
#pragma once

#include "labelled_text.hpp"

#include <vector>

namespace accuracy {

/// Times both doors on every text, in turns, and prints how their times are spread.
void print_times(const std::vector<LabelledText>& texts);

} // namespace accuracy
