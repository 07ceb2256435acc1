# What only this project's own developers build: warnings as errors, the tests, the example host.

# g++ 12 takes the addition of two short strings for copies that overlap.
set(developer_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_options(text_format_detection PRIVATE ${developer_warnings})

function(textio_developer_target target)
  target_compile_options(${target} PRIVATE ${developer_warnings})
  target_link_libraries(${target} PRIVATE text_format_detection::text_format_detection)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

option(TEXTIO_FUZZ "Build the fuzz targets; wants clang and the flags of the preset fuzz" OFF)
if(TEXTIO_FUZZ)
  add_subdirectory(fuzz)
endif()

include(CTest)
# The examples come first, because the tests run them.
add_subdirectory(examples)
if(BUILD_TESTING)
  add_subdirectory(tests)
endif()
if(TEXTIO_BENCHMARKS)
  add_subdirectory(benchmarks)
endif()
