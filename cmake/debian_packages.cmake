# Debian packages: `cpack` in a build with the prefix /usr makes one of each component: the library, its
# -dev package and the example host. A static build has no package of the library.
option(TEXTIO_WITHOUT_LICENCE "Make packages for your own use, while no licence has been chosen" OFF)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/refuse_packages.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian_compress.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian_ldconfig.cmake")

set(about "The library reads a sample of a text under every plausible layout, values
each reading with a few numbers, and names the best: delimited, aligned with
blanks, in columns of fixed width, or one field per line.\n\nThis package has")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libtext-format-detection${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${about} the shared library.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtext-format-detection-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "${about} the headers, and what CMake and pkg-config need to find the\nlibrary.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME text-format-detection-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION text)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "${about} the program detect_layout, which tells the layout of files
in words, as a picture or as JSON, and why it is the best.")
if(BUILD_SHARED_LIBS)
  set(this_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${this_version})")
  set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (>= ${this_version})")
endif()

# The documents that every package has. Only a package gets them, or somebody who installs one component.
set(licence "${PROJECT_SOURCE_DIR}/LICENSE")
if(NOT EXISTS "${licence}")
  set(licence "${PROJECT_SOURCE_DIR}/packaging/debian/no_licence.txt")
  set(CPACK_TEXTIO_ALLOWED "${TEXTIO_WITHOUT_LICENCE}")
endif()
string(TIMESTAMP build_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in packaging/changelog.Debian @ONLY)
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER "${component}" key)
  set(there DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${key}_PACKAGE_NAME}"
      COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES "${licence}" RENAME copyright ${there})
  install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" RENAME changelog ${there})
  install(FILES "${PROJECT_BINARY_DIR}/packaging/changelog.Debian" ${there})
endforeach()
include(CPack)
