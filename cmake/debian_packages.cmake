# Debian packages: `cpack` in a build with the prefix /usr makes the library, its -dev package and the
# example host. A static build has no package of the library.
find_program(dpkg_program dpkg-deb NO_CACHE)
if(NOT dpkg_program)
  return()
endif()

option(TEXTIO_WITHOUT_LICENCE "Make packages for your own use, while no licence has been chosen" OFF)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)

# What cpack refuses to do without, as nobody but the owner and the packager can supply it.
set(licence_file "${PROJECT_SOURCE_DIR}/LICENSE")
if(NOT CPACK_PACKAGE_CONTACT)
  list(APPEND CPACK_TEXTIO_MISSING
    "Who maintains the packages? Configure with -D CPACK_PACKAGE_CONTACT='Name <address>'.")
endif()
if(NOT EXISTS "${licence_file}")
  if(TEXTIO_WITHOUT_LICENCE)
    set(licence_file "${PROJECT_SOURCE_DIR}/packaging/debian/no_licence.txt")
  else()
    list(APPEND CPACK_TEXTIO_MISSING
      "No licence has been chosen: there is no file LICENSE. For packages that you will not pass on, configure with -D TEXTIO_WITHOUT_LICENCE=ON.")
  endif()
endif()
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/refuse_packages.cmake")

string(TIMESTAMP build_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(debian_changelog "${PROJECT_BINARY_DIR}/packaging/changelog.Debian")
configure_file("${PROJECT_SOURCE_DIR}/packaging/debian/changelog.in" "${debian_changelog}" @ONLY)

# Gives a component its package, with the documents that every package has. Only a package gets them,
# or somebody who installs this component alone.
function(debian_package component name section description)
  string(TOUPPER "${component}" key)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  set("CPACK_DEBIAN_${key}_PACKAGE_NAME" "${name}" PARENT_SCOPE)
  set("CPACK_DEBIAN_${key}_PACKAGE_SECTION" "${section}" PARENT_SCOPE)
  set("CPACK_COMPONENT_${key}_DESCRIPTION" "${description}" PARENT_SCOPE)
  set(folder "${CMAKE_INSTALL_DATADIR}/doc/${name}")
  set(there DESTINATION "${folder}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES "${licence_file}" RENAME copyright ${there})
  install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" RENAME changelog ${there})
  install(FILES "${debian_changelog}" ${there})
  debian_gzip(${component} "${folder}/changelog" "${folder}/changelog.Debian")
endfunction()

# Compresses files of a component once they are installed.
function(debian_gzip component)
  list(TRANSFORM ARGN REPLACE "(.+)" "\"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/\\1\"")
  list(JOIN ARGN " " files)
  install(CODE "execute_process(COMMAND gzip -9nf ${files} COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

set(library_package "libtext-format-detection${PROJECT_VERSION_MAJOR}")
set(this_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(about "The library reads a sample of a text under every plausible layout, values
each reading with a few numbers, and names the best: delimited, aligned with
blanks, in columns of fixed width, or one field per line.\n\nThis package has")

debian_package(Development libtext-format-detection-dev libdevel
  "${about} the headers, and what CMake and pkg-config need to find the\nlibrary.")
if(BUILD_SHARED_LIBS)
  debian_package(Runtime "${library_package}" libs "${about} the shared library.")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${this_version})")
  set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian_ldconfig.cmake")
endif()
if(TARGET detect_layout)
  debian_package(tools text-format-detection-tools text "${about} the program detect_layout, which
tells the layout of files in words, as a picture or as JSON, and why it is the best.")
  debian_gzip(tools "${CMAKE_INSTALL_MANDIR}/man1/detect_layout.1")
  set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
  if(BUILD_SHARED_LIBS)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
    set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library_package} (>= ${this_version})")
  endif()
endif()
include(CPack)
