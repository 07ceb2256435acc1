# How the compiler is told to calculate, so that every machine comes to the same figures to the last
# digit: a decision can hang on it.
include(CheckCXXSourceCompiles)

set(textio_arithmetic)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  # A fused multiply-add would change the last digit of a sum.
  set(textio_arithmetic -ffp-contract=off)
  check_cxx_source_compiles("
    #ifndef __i386__
    #error another machine
    #endif
    int main() {}" TEXTIO_IS_X86_32)
  if(TEXTIO_IS_X86_32)
    # The old floating-point unit has numbers of 80 bits, of which not all are kept in memory: then a
    # number isn't equal to its own copy.
    list(APPEND textio_arithmetic -msse2 -mfpmath=sse)
  endif()
endif()
