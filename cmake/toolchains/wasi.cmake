# Builds for WebAssembly with Debian's Clang, libc and libc++ for WASI.

set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_C_COMPILER clang-16)
set(CMAKE_CXX_COMPILER clang++-16)
set(CMAKE_C_COMPILER_TARGET wasm32-wasi)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_C_FLAGS_INIT "-isystem /usr/include/wasm32-wasi")
set(CMAKE_CXX_FLAGS_INIT
    "-nostdinc++ -isystem /usr/lib/llvm-16/include/wasm32-wasi/c++/v1 -isystem /usr/include/wasm32-wasi -fno-exceptions")
