# Compresses the manual pages of the packages, as Debian has them.
file(GLOB pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/${CPACK_PACKAGING_INSTALL_PREFIX}/share/man/man?/*)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip --best --no-name ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
