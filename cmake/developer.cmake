# What only this project's own developers build: warnings as errors, the tests, the example host.
option(TEXTIO_BUILD_EXAMPLES "Build the examples, which want ICU and more" ON)
option(TEXTIO_BUILD_FUZZERS "Build the fuzz targets; wants clang and the flags of the preset fuzz" OFF)
set(TEXTIO_GTEST_SOURCE "" CACHE PATH "Source of GoogleTest, where none is installed for the compiler")

enable_language(C) # programs and tests of the C interface
include(CTest)
include(GoogleTest)
if(TEXTIO_GTEST_SOURCE)
  add_subdirectory("${TEXTIO_GTEST_SOURCE}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
elseif(BUILD_TESTING)
  find_package(GTest REQUIRED)
endif()

# From here on, it is all the project's own.
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_EXTENSIONS OFF)
set(developer_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimising, g++ 12 takes a literal that is put in front of a string for an overlapping copy.
  list(APPEND developer_warnings -Wno-restrict)
endif()
target_compile_options(text_format_detection PRIVATE ${developer_warnings})
add_compile_options(${developer_warnings})
link_libraries(text_format_detection::text_format_detection)

# Each build's tests have a folder of their own for temporary files, as those of several can run at once.
function(textio_test_program target)
  add_executable(${target} ${ARGN})
  target_compile_definitions(${target} PRIVATE EXAMPLE_DATA="${PROJECT_SOURCE_DIR}/examples/data")
  target_link_libraries(${target} PRIVATE GTest::gtest_main)
  gtest_discover_tests(${target} PROPERTIES ENVIRONMENT "TEST_TMPDIR=${CMAKE_CURRENT_BINARY_DIR}/")
endfunction()

if(TEXTIO_BUILD_FUZZERS)
  add_subdirectory(fuzz)
endif()
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
