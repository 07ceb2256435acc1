# Run by cpack before it makes any package.
if(CPACK_TEXTIO_MISSING)
  list(JOIN CPACK_TEXTIO_MISSING "\n" missing)
  message(FATAL_ERROR "${missing}")
endif()
