# SPDX-License-Identifier: MIT
# The installed headers are the public ones of the library target, neither more nor fewer.
set(expected)
foreach(header IN LISTS EXPECTED)
  cmake_path(NORMAL_PATH header)
  cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${ROOT})
  list(APPEND expected ${header})
endforeach()
file(GLOB_RECURSE installed RELATIVE ${INSTALLED} ${INSTALLED}/*)
list(SORT expected)
list(SORT installed)
if(NOT installed STREQUAL expected OR NOT installed)
  message(FATAL_ERROR "installed: ${installed}\npublic: ${expected}")
endif()
