# An overlay port of the source tree that it lies in.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

if(EXISTS "${SOURCE_PATH}/LICENSE")
  vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
elseif("without-licence" IN_LIST FEATURES)
  set(VCPKG_POLICY_SKIP_COPYRIGHT_CHECK enabled)
else()
  message(FATAL_ERROR "No licence has been chosen: there is no file LICENSE. For a package that you "
    "will not pass on, install text-format-detection[without-licence].")
endif()

vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}" OPTIONS -DTEXTIO_DEVELOPER=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/text_format_detection PACKAGE_NAME text_format_detection)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include")
