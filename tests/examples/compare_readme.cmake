# SPDX-License-Identifier: MIT
# The code of EXAMPLE, without its licence line, must stand in README as it is.
file(READ ${README} readme)
file(READ ${EXAMPLE} code)
string(FIND "${code}" "\n" line_end)
math(EXPR code_start "${line_end} + 1")
string(SUBSTRING "${code}" ${code_start} -1 code)
string(FIND "${readme}" "```cpp\n${code}```" position)
if(position EQUAL -1)
  message(FATAL_ERROR "the README does not show this program:\n${code}")
endif()
