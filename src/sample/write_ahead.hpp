/// \file
/// A hint to the processor that a large array goes on being filled.
#pragma once

#include "address.hpp"

#include <cstdint>

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace textio::parser {

/// Has the memory fetched that is written soon if writing goes on as it came to `written`. An array
/// that fits into no cache is filled up to twice as fast. Nothing is read or changed, so it does
/// not matter whether there is such memory.
template <class Element>
void fetch_ahead([[maybe_unused]] const Element* written) noexcept {
#if defined(__SSE__)
    constexpr std::uintptr_t ahead = 3072; // bytes; twice or half as many do as well
    // NOLINTNEXTLINE(*-reinterpret-cast, *-no-int-to-ptr): a hint may name what is no memory.
    _mm_prefetch(reinterpret_cast<const void*>(address_of(written) + ahead), _MM_HINT_T0);
#endif
}

} // namespace textio::parser
