# Builds for another platform with Debian's cross compiler; qemu runs what it builds. The platform is AST_CROSS, such as
# s390x-linux-gnu, whose emulator is AST_CROSS_EMULATOR; AST_CROSS_PACKAGES is where the packages of that platform have
# been unpacked, whose libraries lie in folders named AST_CROSS_ARCHITECTURE, as scripts/test-platforms does it.

set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES AST_CROSS AST_CROSS_EMULATOR AST_CROSS_PACKAGES AST_CROSS_ARCHITECTURE)

set(CMAKE_SYSTEM_NAME Linux)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${AST_CROSS})
set(CMAKE_C_COMPILER ${AST_CROSS}-gcc)
set(CMAKE_CXX_COMPILER ${AST_CROSS}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${AST_CROSS_ARCHITECTURE})
set(CMAKE_CROSSCOMPILING_EMULATOR ${AST_CROSS_EMULATOR} -L /usr/${AST_CROSS})

set(CMAKE_FIND_ROOT_PATH ${AST_CROSS_PACKAGES} /usr/${AST_CROSS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static-libstdc++ -static-libgcc")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static-libstdc++ -static-libgcc")
