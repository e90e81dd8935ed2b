# Builds WebAssembly modules that are loaded and called, with exceptions.

include(${CMAKE_CURRENT_LIST_DIR}/wasi.cmake)
string(REPLACE -fno-exceptions -fwasm-exceptions CMAKE_CXX_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
