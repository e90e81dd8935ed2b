# How everything in this project is compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(AST_CCACHE ccache)
if(AST_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # What is compiled ahead has definitions and times of its own, which it is not to be told from its like by.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${AST_CCACHE})
endif()

# ast_precompile(TARGET HEADER...): with AST_PRECOMPILE, compiles once what its sources include most, and these.
function(ast_precompile target)
  if(AST_PRECOMPILE)
    target_precompile_headers(
      ${target} PRIVATE ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/precompiled.hpp ${ARGN})
  endif()
endfunction()

# Files of more than 2 GB, and times after 2038, also where the system's own numbers have 32 bits.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

# Warnings, for targets of this project only.
add_library(ast_warnings INTERFACE)
target_compile_options(
  ast_warnings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wcast-align
            -Wcast-qual
            -Wformat=2
            -Wundef
            $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor
            -Wold-style-cast
            -Woverloaded-virtual
            -Wmissing-declarations
            -Wextra-semi>
            $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wduplicated-cond
            -Wlogical-op
            -Wno-missing-field-initializers
            -Wno-restrict> # GCC 12 takes assignments to std::string for overlapping copies
            $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:Clang>>:-Wno-missing-field-initializers
            -Wno-gnu-zero-variadic-macro-arguments>
            $<$<BOOL:${AST_WERROR}>:-Werror>)

if(WIN32)
  # Windows 10, without the parts of its headers that nothing here uses, and which take the names min and max.
  add_compile_definitions(_WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX)
endif()

if(AST_SANITIZE)
  add_compile_options(-fsanitize=${AST_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${AST_SANITIZE})
  # GCC says that its thread sanitizer knows no fences, of which Asio has some that nothing here uses.
  if(AST_SANITIZE MATCHES thread AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-tsan>)
  endif()
endif()

if(AST_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
