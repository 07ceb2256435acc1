# The installed tree: what runs a program in the component Runtime, what builds one in Development,
# with a CMake package and a pkg-config file that both can be moved along with the rest.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/text_format_detection")

install(TARGETS text_format_detection EXPORT text_format_detection
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development
  FILE_SET HEADERS COMPONENT Development)
install(EXPORT text_format_detection NAMESPACE text_format_detection::
  FILE text_format_detection-config.cmake
  DESTINATION "${package_dir}" COMPONENT Development)
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/text_format_detection-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/text_format_detection-config-version.cmake"
  DESTINATION "${package_dir}" COMPONENT Development)

# A C++ linker adds these by itself; a C linker needs to be told of them for the static library.
set(pc_private_libs ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
list(FILTER pc_private_libs INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|m)$")
list(TRANSFORM pc_private_libs PREPEND "-l")
list(JOIN pc_private_libs " " pc_private_libs)
set(pc_definitions "")
if(NOT BUILD_SHARED_LIBS)
  set(pc_definitions "-DTEXTIO_STATIC_DEFINE")
endif()
set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  file(RELATIVE_PATH pc_prefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(PREPEND pc_prefix "\${pcfiledir}/")
  string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
endif()
cmake_path(APPEND pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file("${PROJECT_SOURCE_DIR}/packaging/text_format_detection.pc.in"
               "${PROJECT_BINARY_DIR}/text_format_detection.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/text_format_detection.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
