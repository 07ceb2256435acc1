# What only this project's own developers build: warnings as errors, the tests, the example host.

set(developer_warnings -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimising, g++ 12 takes a literal that is put in front of a string for an overlapping copy.
  list(APPEND developer_warnings -Wno-restrict)
endif()
target_compile_options(text_format_detection PRIVATE ${developer_warnings})
set_target_properties(text_format_detection PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)

function(textio_developer_target target)
  target_compile_options(${target} PRIVATE ${developer_warnings})
  target_link_libraries(${target} PRIVATE text_format_detection::text_format_detection)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
endfunction()

include(CTest)
# The examples come first, because the tests run them.
add_subdirectory(examples)
if(BUILD_TESTING)
  add_subdirectory(tests)
endif()
