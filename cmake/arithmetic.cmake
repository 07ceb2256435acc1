# Every machine has to come to the same figures to the last digit, as a decision can hang on it. A fused
# multiply-add would change the last digit of a sum. The old floating-point unit of x86 has numbers of 80
# bits, of which not all are kept in memory: then a number isn't equal to its own copy.
include(CheckCXXCompilerFlag)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options(-ffp-contract=off)
  check_cxx_compiler_flag("-msse2;-mfpmath=sse" TEXTIO_IS_X86)
  if(TEXTIO_IS_X86 AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    add_compile_options(-msse2 -mfpmath=sse)
  endif()
endif()
