# SPDX-License-Identifier: MIT
# The quick start saves the two attachments of the message that comes with the sources.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(ENV{LC_ALL} C.UTF-8)
execute_process(COMMAND ${PROGRAM} ${MESSAGE} WORKING_DIRECTORY ${WORK} COMMAND_ERROR_IS_FATAL ANY)

file(GLOB names RELATIVE ${WORK} ${WORK}/*)
list(SORT names)
set(expected "Lageplan Gewächshaus.png" meeting.ics)
if(NOT names STREQUAL expected)
  message(FATAL_ERROR "saved: ${names}\nexpected: ${expected}")
endif()
file(READ ${WORK}/meeting.ics calendar)
if(NOT calendar MATCHES "^BEGIN:VCALENDAR")
  message(FATAL_ERROR "meeting.ics begins with: ${calendar}")
endif()
