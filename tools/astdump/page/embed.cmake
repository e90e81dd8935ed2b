# cmake -DOUTPUT=FILE -DSTYLE=FILE -DSCRIPTS=FILE,FILE... -P embed.cmake: writes a source that holds the style and the
# scripts of the page, and the SHA-256 of the scripts, one behind the other, by which the page lets them run.

# Base64 of octets in hexadecimal digits.
function(base64 hex result)
  set(digits "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/")
  string(LENGTH "${hex}" length)
  set(text "")
  foreach(start RANGE 0 ${length} 6)
    string(SUBSTRING "${hex}" ${start} 6 group)
    string(LENGTH "${group}" count)
    if(count EQUAL 0)
      break()
    endif()
    string(SUBSTRING "${group}0000" 0 6 group)
    math(EXPR used "${count} / 2 + 1")
    foreach(shift 18 12 6 0)
      if(used GREATER 0)
        math(EXPR digit "(0x${group} >> ${shift}) & 63")
        string(SUBSTRING "${digits}" ${digit} 1 character)
      else()
        set(character "=")
      endif()
      string(APPEND text "${character}")
      math(EXPR used "${used} - 1")
    endforeach()
  endforeach()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# A file without the indentation and the lines of comment, which nobody reads in a page.
function(read_bare file result)
  file(READ "${file}" content)
  string(REGEX REPLACE "\n[ ]+" "\n" content "${content}")
  string(REGEX REPLACE "\n//[^\n]*" "" content "${content}")
  string(REGEX REPLACE "\n\n+" "\n" content "${content}")
  set(${result} "${content}" PARENT_SCOPE)
endfunction()

# A piece of its own for each file: compilers need not take longer ones.
function(literals result)
  set(text "")
  foreach(file IN LISTS ARGN)
    read_bare("${file}" content)
    string(APPEND text "    R\"embedded(${content})embedded\",\n")
  endforeach()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

string(REPLACE "," ";" SCRIPTS "${SCRIPTS}")
set(script "")
foreach(file IN LISTS SCRIPTS)
  read_bare("${file}" content)
  string(APPEND script "${content}")
endforeach()
string(SHA256 hash "${script}")
base64(${hash} hash)
literals(style_literals "${STYLE}")
literals(script_literals ${SCRIPTS})

file(
  WRITE "${OUTPUT}"
  "#include \"page_files.hpp\"\n\nnamespace astdump {\n\nconst std::vector<std::string_view> &page_style() {\n"
  "    static const std::vector<std::string_view> files = {\n${style_literals}};\n    return files;\n}\n\n"
  "const std::vector<std::string_view> &page_script() {\n"
  "    static const std::vector<std::string_view> files = {\n${script_literals}};\n    return files;\n}\n\n"
  "std::string_view page_script_hash() { return \"sha256-${hash}\"; }\n\n} // namespace astdump\n")
