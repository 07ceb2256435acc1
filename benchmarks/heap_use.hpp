/// \file
/// What the program takes from the heap. Linking heap_use.cpp replaces the global `operator new`.
#pragma once

#include <cstddef>

namespace bench {

/// Figures since the start of the program.
struct HeapUse {
    std::size_t allocations; ///< calls of `operator new`
    std::size_t held_bytes;  ///< asked for and not given back yet
    std::size_t peak_bytes;  ///< the most that was ever held since `restart_peak`
};

HeapUse heap_use() noexcept;

/// Lets the peak start anew from what is held now.
void restart_peak() noexcept;

/// Memory that is given back stays with the program, as in a host that has detected a large text
/// before. Otherwise large texts measure how fast the system clears fresh pages, and small ones do
/// not.
void keep_freed_memory() noexcept;

} // namespace bench
