# What only this project's own developers build: warnings as errors, the tests, the example host.

set(developer_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
target_compile_options(text_format_detection PRIVATE ${developer_warnings})

function(textio_developer_target target)
  # g++ 12 takes the copies of inlined string additions for overlapping ones.
  target_compile_options(${target} PRIVATE ${developer_warnings}
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  target_link_libraries(${target} PRIVATE text_format_detection::text_format_detection)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

include(CTest)
# The examples come first, because the tests run them.
add_subdirectory(examples)
if(BUILD_TESTING)
  add_subdirectory(tests)
endif()
