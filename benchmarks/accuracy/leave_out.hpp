/// \file
/// What each term of the advice's score brings: the ranking without it.
#pragma once

#include "labelled_text.hpp"

#include <vector>

namespace accuracy {

/// Ranks the readings of every text again and again, each time without one of the terms, and prints
/// how many layouts are right then. The readings are those that `advise` proposes, and those that
/// it proposes for each kind of layout when it is told that one; which rows a reading takes for its
/// table was decided with all terms.
void print_ranking_without_terms(const std::vector<LabelledText>& texts);

} // namespace accuracy
