# One seed always gives the same recording, another seed another one, and astdump reads it without damage.

function(simulate file seed)
  execute_process(COMMAND ${SIMULATE} --seed ${seed} --aircraft 60 --start 23:59:30 ${OPTIONS} ${ARGN} --output ${file}
                  WORKING_DIRECTORY ${DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(compare one other expected)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${one} ${other} WORKING_DIRECTORY ${DIRECTORY}
                  RESULT_VARIABLE differ ERROR_QUIET)
  if(NOT differ EQUAL expected)
    message(FATAL_ERROR "${one} and ${other}: comparing gives ${differ} instead of ${expected}")
  endif()
endfunction()

foreach(name IN ITEMS first.pcap again.pcap other.pcap sized.ast)
  file(REMOVE ${DIRECTORY}/${name})
endforeach()

simulate(first.pcap 7)
simulate(again.pcap 7)
simulate(other.pcap 8)
simulate(sized.ast 7 --raw --size 100k)
compare(first.pcap again.pcap 0)
compare(first.pcap other.pcap 1)

file(SIZE ${DIRECTORY}/sized.ast size_octets)
if(size_octets LESS 100000 OR size_octets GREATER 101000)
  message(FATAL_ERROR "--size 100k gives ${size_octets} octets")
endif()

if(ASTDUMP)
  execute_process(COMMAND ${ASTDUMP} ${READ} --stats first.pcap sized.ast WORKING_DIRECTORY ${DIRECTORY}
                  OUTPUT_VARIABLE stats COMMAND_ERROR_IS_FATAL ANY)
  foreach(item IN LISTS ITEMS)
    if(NOT stats MATCHES "${item}")
      message(FATAL_ERROR "no ${item} in the recording:\n${stats}")
    endif()
  endforeach()
endif()
