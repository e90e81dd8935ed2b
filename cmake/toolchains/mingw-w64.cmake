# Builds for 64-bit Windows with Debian's cross compiler; Wine runs what it builds.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

# Libraries that are headers alone serve from this machine, but no other header of it.
set(AST_HEADERS ${CMAKE_BINARY_DIR}/headers)
foreach(headers include/asio.hpp include/asio include/CLI share/cmake/CLI11)
  cmake_path(GET headers PARENT_PATH folder)
  file(MAKE_DIRECTORY ${AST_HEADERS}/${folder})
  file(CREATE_LINK /usr/${headers} ${AST_HEADERS}/${headers} SYMBOLIC)
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${AST_HEADERS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ZLIB_USE_STATIC_LIBS ON)

# The compiler's own libraries go into what is built, so that a DLL stands alone.
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
