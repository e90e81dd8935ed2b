# Debian packages, made by cpack: libast1 and libast-recording1 (the libraries), libast-dev and libast-recording-dev (what
# programs are built with) and astdump, and python3-libast.
# scripts/test-packages builds and tries them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The ast authors")
set(CPACK_PACKAGE_CONTACT "The ast authors <ast@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # or it would stand above the summary of each package
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/compress_manual.cmake)
set(CPACK_COMPONENTS_ALL libast libast-dev)
if(AST_BUILD_RECORDING)
  list(APPEND CPACK_COMPONENTS_ALL libast-recording libast-recording-dev)
endif()
if(AST_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL astdump)
endif()
if(TARGET python_package)
  list(APPEND CPACK_COMPONENTS_ALL python3-libast)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries are of no package yet when the dependencies of the others are looked up; theirs on them are given below.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/recording)

# debian_package(COMPONENT NAME SECTION TEXT [DEPENDENCY...])
function(debian_package component name section text)
  string(TOUPPER CPACK_DEBIAN_${component} variable)
  list(JOIN ARGN ", " dependencies)
  set(${variable}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(${variable}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(${variable}_PACKAGE_DEPENDS "${dependencies}" PARENT_SCOPE)
  set(${variable}_DESCRIPTION "${text}" PARENT_SCOPE)
  # A full installation has the licence once, a package its own.
  install(
    FILES ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${name}
    RENAME copyright
    COMPONENT ${component}
    EXCLUDE_FROM_ALL)
endfunction()

set(AST_DEBIAN_LIBRARY libast${PROJECT_VERSION_MAJOR})
set(AST_DEBIAN_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

debian_package(
  libast
  ${AST_DEBIAN_LIBRARY}
  libs
  "ASTERIX surveillance data library
ASTERIX is the format in which radars, multilateration systems and ADS-B
stations report to air traffic control. This library decodes its blocks,
records and items, shows them as text, and encodes them.")
debian_package(
  libast-dev
  libast-dev
  libdevel
  "ASTERIX surveillance data library - development files
The header, the CMake package and the pkg-config file that programs are built
with which decode or encode ASTERIX surveillance data."
  "${AST_DEBIAN_LIBRARY} (= ${AST_DEBIAN_VERSION})")
set(AST_DEBIAN_RECORDING libast-recording${PROJECT_VERSION_MAJOR})
debian_package(
  libast-recording
  ${AST_DEBIAN_RECORDING}
  libs
  "ASTERIX surveillance data library - recordings
Opens captures, recordings and live streams of the surveillance data that
radars, multilateration systems and ADS-B stations send to air traffic
control, and hands over their blocks one by one."
  "${AST_DEBIAN_LIBRARY} (>= ${PROJECT_VERSION})")
debian_package(
  libast-recording-dev
  libast-recording-dev
  libdevel
  "ASTERIX surveillance data library - development files for recordings
The header and the pkg-config file that programs are built with which read
recordings of ASTERIX surveillance data."
  "${AST_DEBIAN_RECORDING} (= ${AST_DEBIAN_VERSION})"
  "libast-dev (= ${AST_DEBIAN_VERSION})")
debian_package(
  astdump
  astdump
  net
  "shows ASTERIX surveillance data in captures and recordings
Reads pcap and pcapng captures and files of blocks back to back, as radars,
multilateration systems and ADS-B stations send them to air traffic control,
and lists, counts and selects what they hold."
  "${AST_DEBIAN_LIBRARY} (>= ${PROJECT_VERSION})")
debian_package(
  python3-libast
  python3-libast
  python
  "ASTERIX surveillance data for Python
Reads the surveillance data that radars, multilateration systems and ADS-B
stations send to air traffic control from captures, recordings and the
network, changes, writes and sends it."
  "${AST_DEBIAN_RECORDING} (>= ${PROJECT_VERSION})"
  "python3 (>= 3.9)")

include(CPack)
