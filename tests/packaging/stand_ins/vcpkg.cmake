# Runs a port as vcpkg would, as far as the port's own lines can be right or wrong:
#   cmake -D PORT=folder -D CURRENT_PACKAGES_DIR=prefix -D BUILD=folder -D FEATURES=core -P vcpkg.cmake
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND "${CMAKE_COMMAND}" ${ARGV} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" SOURCE_PATH OPTIONS)
  run(-G Ninja -S "${arg_SOURCE_PATH}" -B "${BUILD}" -D CMAKE_BUILD_TYPE=Debug
      -D "CMAKE_INSTALL_PREFIX=${CURRENT_PACKAGES_DIR}" -D CMAKE_INSTALL_LIBDIR=lib ${arg_OPTIONS})
endfunction()

function(vcpkg_cmake_install)
  run(--build "${BUILD}" --target install)
endfunction()

# Reading fails if the port has installed no such file.
function(vcpkg_cmake_config_fixup)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "CONFIG_PATH;PACKAGE_NAME" "")
  file(READ "${CURRENT_PACKAGES_DIR}/${arg_CONFIG_PATH}/${arg_PACKAGE_NAME}-config.cmake" config)
endfunction()

function(vcpkg_install_copyright)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" FILE_LIST)
  file(COPY_FILE "${arg_FILE_LIST}" "${CURRENT_PACKAGES_DIR}/copyright")
endfunction()

function(vcpkg_fixup_pkgconfig)
endfunction()

include("${PORT}/portfile.cmake")
if(NOT VCPKG_POLICY_SKIP_COPYRIGHT_CHECK AND NOT EXISTS "${CURRENT_PACKAGES_DIR}/copyright")
  message(FATAL_ERROR "the port installs no copyright")
endif()
