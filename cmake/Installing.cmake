# What is installed, and where. Each component is the Debian package of that name; see Packaging.cmake.

include(CMakePackageConfigHelpers)

install(
  TARGETS ast
  EXPORT ast
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT libast
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT libast
          NAMELINK_COMPONENT libast-dev
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libast-dev)
install(
  DIRECTORY ${PROJECT_SOURCE_DIR}/include/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT libast-dev
  PATTERN ast_recording.h EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

# The CMake package: find_package(ast), then ast::ast.
set(AST_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/ast)
install(
  EXPORT ast
  NAMESPACE ast::
  FILE ast-targets.cmake
  DESTINATION ${AST_CMAKE_DIR}
  COMPONENT libast-dev)
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/ast-config.cmake.in ${PROJECT_BINARY_DIR}/ast-config.cmake
  INSTALL_DESTINATION ${AST_CMAKE_DIR}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ast-config-version.cmake COMPATIBILITY SameMajorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/ast-config.cmake ${PROJECT_BINARY_DIR}/ast-config-version.cmake
  DESTINATION ${AST_CMAKE_DIR}
  COMPONENT libast-dev)

# The .pc files find their prefix from where it lies itself, so that an installed tree can be moved.
cmake_path(
  RELATIVE_PATH
  CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
  OUTPUT_VARIABLE
  AST_PREFIX_FROM_PKGCONFIG)
foreach(dir LIBDIR INCLUDEDIR)
  cmake_path(
    APPEND
    AST_PKGCONFIG_${dir}
    "\${prefix}"
    ${CMAKE_INSTALL_${dir}})
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/ast.pc.in ${PROJECT_BINARY_DIR}/ast.pc @ONLY)
install(
  FILES ${PROJECT_BINARY_DIR}/ast.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT libast-dev)

if(AST_BUILD_RECORDING)
  # Both libraries stand in one folder.
  set_target_properties(ast_recording PROPERTIES INSTALL_RPATH $ORIGIN)
  install(
    TARGETS ast_recording
    EXPORT ast-recording
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT libast-recording
            NAMELINK_COMPONENT libast-recording-dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libast-recording-dev)
  install(
    FILES ${PROJECT_SOURCE_DIR}/include/ast_recording.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT libast-recording-dev)
  # A part of the CMake package ast, which finds it where it is installed.
  install(
    EXPORT ast-recording
    NAMESPACE ast::
    FILE ast-recording-targets.cmake
    DESTINATION ${AST_CMAKE_DIR}
    COMPONENT libast-recording-dev)
  if(AST_ZSTD)
    set(AST_ALSO_ZSTD " libzstd")
  endif()
  configure_file(${CMAKE_CURRENT_LIST_DIR}/ast-recording.pc.in ${PROJECT_BINARY_DIR}/ast-recording.pc @ONLY)
  install(
    FILES ${PROJECT_BINARY_DIR}/ast-recording.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT libast-recording-dev)
endif()

if(AST_BUILD_TOOLS)
  # The tool finds the library in its own tree, wherever that is.
  cmake_path(
    RELATIVE_PATH
    CMAKE_INSTALL_FULL_LIBDIR
    BASE_DIRECTORY
    ${CMAKE_INSTALL_FULL_BINDIR}
    OUTPUT_VARIABLE
    AST_LIBRARY_FROM_TOOL)
  set_target_properties(astdump PROPERTIES INSTALL_RPATH $ORIGIN/${AST_LIBRARY_FROM_TOOL})
  install(
    TARGETS astdump
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
            COMPONENT astdump)
  install(
    FILES ${PROJECT_SOURCE_DIR}/docs/astdump.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT astdump)

  # Where the shells look: zsh of Debian looks elsewhere below /usr than others do below their prefixes.
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(zsh_directory zsh/vendor-completions)
  else()
    set(zsh_directory zsh/site-functions)
  endif()
  set(completions ${PROJECT_SOURCE_DIR}/tools/astdump/completions)
  install(
    FILES ${completions}/astdump.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME astdump
    COMPONENT astdump)
  install(
    FILES ${completions}/_astdump
    DESTINATION ${CMAKE_INSTALL_DATADIR}/${zsh_directory}
    COMPONENT astdump)
  install(
    FILES ${completions}/astdump.fish
    DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT astdump)
endif()
