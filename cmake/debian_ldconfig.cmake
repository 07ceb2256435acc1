# Run by cpack when the packages are made. Its scripts call ldconfig at each step of an installation;
# the trigger that Debian wants in their place calls it once, at the end.
list(FILTER CPACK_PACKAGE_FILES INCLUDE REGEX "/libtext-format-detection[0-9]")
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(folder "${package}.unpacked")
  execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${folder}" COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")
  file(WRITE "${folder}/DEBIAN/triggers" "activate-noawait ldconfig\n")
  execute_process(COMMAND dpkg-deb --root-owner-group --build "${folder}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${folder}")
endforeach()
