# cmake -DOUTPUT=FILE -DSTYLE=FILE -DBOOT=FILE -DSCRIPTS=FILE,FILE... -P embed.cmake: writes a source that holds the style
# and the scripts of the page, and the hashes by which the page lets them run.

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

# The SHA-256 by which a policy names the files, one behind the other.
function(policy_hash result)
  set(text "")
  foreach(file IN LISTS ARGN)
    read_bare("${file}" content)
    string(APPEND text "${content}")
  endforeach()
  string(SHA256 hash "${text}")
  base64(${hash} hash)
  set(${result} "sha256-${hash}" PARENT_SCOPE)
endfunction()

# A function of C++ that returns pieces of text.
function(text_function name literals result)
  set(${result}
      "std::string ${name}() {\n    static constexpr std::string_view kFiles[] = {\n${literals}};\n\
    std::string text;\n    for (const std::string_view file : kFiles) text += file;\n    return text;\n}\n\n"
      PARENT_SCOPE)
endfunction()

string(REPLACE "," ";" SCRIPTS "${SCRIPTS}")
literals(style_literals "${STYLE}")
literals(boot_literals "${BOOT}")
literals(script_literals ${SCRIPTS})
text_function(page_style "${style_literals}" style)
text_function(page_boot "${boot_literals}" boot)
text_function(page_script "${script_literals}" script)
policy_hash(boot_hash "${BOOT}")
policy_hash(script_hash ${SCRIPTS})
file(
  WRITE "${OUTPUT}"
  "#include \"page/page_parts.hpp\"\n\nnamespace ast::recording::astdump {\n\n${style}${boot}${script}"
  "std::string_view page_script_hashes() { return \"'${boot_hash}' '${script_hash}'\"; }\n\n} // namespace ast::recording::astdump\n")
