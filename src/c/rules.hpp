/// \file
/// The answer by rules, in the form of one by advice.
#pragma once

#include "textio/advice.hpp"
#include "textio/c.h"
#include "textio/field.hpp"

namespace textio::c {

/// What the rules say, with its sample: without names, score and terms, and with one column at
/// least.
[[nodiscard]] advice::Proposal ask_rules(const Field& text, const textio_hints& hints);

} // namespace textio::c
