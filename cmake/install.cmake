# The installed tree: what runs a program in the component Runtime, what builds one in Development,
# with a CMake package and a pkg-config file that both can be moved along with the rest.
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME Development)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/text_format_detection")
set(version_file "${PROJECT_BINARY_DIR}/text_format_detection-config-version.cmake")

install(TARGETS text_format_detection EXPORT text_format_detection
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  FILE_SET HEADERS)
install(EXPORT text_format_detection NAMESPACE text_format_detection::
  FILE text_format_detection-config.cmake DESTINATION "${package_dir}")
write_basic_package_version_file("${version_file}" COMPATIBILITY SameMajorVersion)
install(FILES "${version_file}" DESTINATION "${package_dir}")

# A C++ linker adds these by itself; a C linker needs to be told of them for the static library.
list(TRANSFORM CMAKE_CXX_IMPLICIT_LINK_LIBRARIES PREPEND "-l" OUTPUT_VARIABLE pc_private_libs)
list(FILTER pc_private_libs INCLUDE REGEX "^-l(stdc\\+\\+|c\\+\\+|m)$")
list(JOIN pc_private_libs " " pc_private_libs)
if(NOT BUILD_SHARED_LIBS)
  set(pc_definitions "-DTEXTIO_STATIC_DEFINE")
endif()
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" OUTPUT_VARIABLE pc_prefix)
cmake_path(APPEND pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(packaging/text_format_detection.pc.in text_format_detection.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/text_format_detection.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
