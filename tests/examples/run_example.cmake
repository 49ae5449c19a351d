# SPDX-License-Identifier: MIT
# Runs PROGRAM with ARGUMENTS in WORK: the exit status must be STATUS, the standard output the content
# of EXPECTED, and the files of each pair in SAME equal.
execute_process(COMMAND ${PROGRAM} ${ARGUMENTS} WORKING_DIRECTORY ${WORK}
  OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status EQUAL STATUS)
  message(FATAL_ERROR "exit status ${status} instead of ${STATUS}\n${output}\n${errors}")
endif()
file(READ ${EXPECTED} expected)
string(REPLACE "\r" "" output "${output}")
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${output}")
endif()
foreach(pair IN LISTS SAME)
  string(REGEX MATCH "^(.*)=(.*)$" matched "${pair}")
  set(first ${CMAKE_MATCH_1})
  set(second ${CMAKE_MATCH_2})
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${first} ${second}
    WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
