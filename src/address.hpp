#pragma once

#include <cstdint>

namespace textio {

/// The address of a place in memory as a number, to compare places that need not lie in one array.
inline std::uintptr_t address_of(const void* place) noexcept {
    // NOLINTNEXTLINE(*-reinterpret-cast): std::bit_cast is missing in older standard libraries.
    return reinterpret_cast<std::uintptr_t>(place);
}

} // namespace textio
