/// \file
/// What is tried at growing sizes: each public operation and each reader, over texts and options
/// that were made to be expensive.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Something to do whose input has a size.
struct GrowthCase {
    std::string name;
    /// Makes the input of so many code units, or other parts, and gives what is to be timed.
    std::function<std::function<void()>(std::size_t)> prepare;
};

/// Whole detection runs and the three readers over hostile texts, and under hostile options.
std::vector<GrowthCase> text_cases();

/// The other public operations.
std::vector<GrowthCase> operation_cases();

} // namespace bench
