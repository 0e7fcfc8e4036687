# cmake -DVALGRIND=... -DPROGRAM=... -DFOLDER=... [-DSHAPE=...] -P check_counts.cmake
#
# Runs counted_reads under callgrind and fails where twice the items take more than 2.2 times the instructions, or where
# numbers of seven times the digits take more than 1.1 times those of short ones. Prints each shape with both counts.
# Instructions, unlike time, do not depend on what else the machine does.
cmake_policy(VERSION 3.25)
set(limitInTenths 22)

# Into `names` the parts in the order of the reads, and into count_NAME the instructions of each.
function(count_reads)
  file(REMOVE_RECURSE ${FOLDER})
  file(MAKE_DIRECTORY ${FOLDER})
  execute_process(
    COMMAND ${VALGRIND} --tool=callgrind --collect-atstart=no --callgrind-out-file=${FOLDER}/counts ${PROGRAM}
            ${FOLDER} ${SHAPE}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE names
    ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "counted_reads ends with ${result}:\n${errors}")
  endif()
  string(REGEX MATCHALL "[^\n]+" names "${names}")
  set(names "${names}" PARENT_SCOPE)
  file(GLOB parts ${FOLDER}/counts.*)
  foreach(part IN LISTS parts)
    file(STRINGS ${part} lines REGEX "^(desc: Trigger: Client Request:|totals:)")
    if("${lines}" MATCHES "Client Request: ([^;]+);totals: ([0-9]+)")
      set(count_${CMAKE_MATCH_1} ${CMAKE_MATCH_2} PARENT_SCOPE)
    endif()
  endforeach()
  file(REMOVE_RECURSE ${FOLDER})
endfunction()

count_reads()
if(NOT names)
  message(FATAL_ERROR "nothing was read")
endif()
set(failed "")
while(names)
  list(POP_FRONT names small large)
  math(EXPR hundredths "100 * ${count_${large}} / ${count_${small}}")
  math(EXPR allowed "10 * ${limitInTenths}")
  if(small MATCHES "^digits/")
    set(allowed 110)
  endif()
  message(STATUS "${small}: ${count_${small}}, ${large}: ${count_${large}}, ${hundredths} %")
  if(hundredths GREATER allowed)
    list(APPEND failed ${small})
  endif()
endwhile()
if(failed)
  message(FATAL_ERROR "the larger file takes more than 2.2 times the instructions: ${failed}")
endif()
