# What only this project's own developers build: warnings as errors, the tests, the example host.

enable_language(C) # programs and tests of the C interface
set(developer_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimising, g++ 12 takes a literal that is put in front of a string for an overlapping copy.
  list(APPEND developer_warnings -Wno-restrict)
endif()
target_compile_options(text_format_detection PRIVATE ${developer_warnings})

function(textio_developer_target target)
  target_compile_options(${target} PRIVATE ${developer_warnings} ${textio_arithmetic})
  set_target_properties(${target} PROPERTIES C_STANDARD 99 C_EXTENSIONS OFF)
  target_link_libraries(${target} PRIVATE text_format_detection::text_format_detection)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

# Each build's tests have a folder of their own for temporary files, as those of several can run at once.
function(textio_test_program target)
  add_executable(${target} ${ARGN})
  textio_developer_target(${target})
  target_link_libraries(${target} PRIVATE GTest::gtest_main)
  gtest_discover_tests(${target} PROPERTIES ENVIRONMENT "TEST_TMPDIR=${CMAKE_CURRENT_BINARY_DIR}/")
endfunction()

option(TEXTIO_BUILD_EXAMPLES "Build the examples, which want ICU and more" ON)
option(TEXTIO_BUILD_FUZZERS "Build the fuzz targets; wants clang and the flags of the preset fuzz" OFF)
if(TEXTIO_BUILD_FUZZERS)
  add_subdirectory(fuzz)
endif()

include(CTest)
# The examples come first, because the tests run them.
if(TEXTIO_BUILD_EXAMPLES)
  add_subdirectory(examples)
endif()
if(BUILD_TESTING)
  add_subdirectory(tests)
endif()
if(TEXTIO_BUILD_BENCHMARKS)
  add_subdirectory(benchmarks)
endif()
