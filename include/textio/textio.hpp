/// \file
/// One include for the whole library.
#pragma once

#include "textio/advice.hpp"
#include "textio/candidates.hpp"
#include "textio/decision_observer.hpp"
#include "textio/field.hpp"
#include "textio/fixed_stream.hpp"
#include "textio/names.hpp"
#include "textio/options.hpp"
#include "textio/platform/delimiter_set.hpp"
#include "textio/platform/is_datetime.hpp"
#include "textio/platform/text_stream.hpp"
#include "textio/reading.hpp"
#include "textio/rules.hpp"
#include "textio/statistics.hpp"
#include "textio/strategy.hpp"
#include "textio/strategy_selector.hpp"
#include "textio/strategy_valuation.hpp"
#include "textio/type_analyzer.hpp"
#include "textio/utf8.hpp"
#include "textio/version.hpp"
