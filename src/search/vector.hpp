/// \file
/// The few operations on vectors that the searches are made of: with SSE2, with NEON, and with
/// whole numbers of 64 bits for all other processors, or where `TEXTIO_PLAIN_VECTORS` asks for it.
/// A further set of instructions is one more file with these two classes, chosen here.
#pragma once

#if defined(TEXTIO_PLAIN_VECTORS)
#include "search/vector/plain.hpp"
#elif defined(__SSE2__) || defined(_M_X64)
#include "search/vector/sse2.hpp"
#elif (defined(__aarch64__) && defined(__ARM_NEON) && !defined(__ARM_BIG_ENDIAN)) ||               \
    defined(_M_ARM64)
#include "search/vector/neon.hpp"
#else
#include "search/vector/plain.hpp"
#endif
