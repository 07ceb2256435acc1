# Run by cpack before it makes any package.
if(DEFINED CPACK_TEXTIO_ALLOWED AND NOT CPACK_TEXTIO_ALLOWED)
  message(FATAL_ERROR "No licence has been chosen: there is no file LICENSE. For packages that you will not "
    "pass on, configure with -D TEXTIO_WITHOUT_LICENCE=ON.")
endif()
