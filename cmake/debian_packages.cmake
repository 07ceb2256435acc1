# Debian packages: `cpack` in a build of the shared library with the prefix /usr makes the library
# and its -dev package. A static build has no runtime and gives the -dev package alone.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "text_format_detection maintainers <maintainers@localhost>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

set(library_package "libtext-format-detection${PROJECT_VERSION_MAJOR}")
set(CPACK_COMPONENTS_ALL Development)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtext-format-detection-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "The headers, and what CMake and pkg-config need to find the library.")
if(BUILD_SHARED_LIBS)
  list(PREPEND CPACK_COMPONENTS_ALL Runtime)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${library_package}")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared library.")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
endif()
include(CPack)
