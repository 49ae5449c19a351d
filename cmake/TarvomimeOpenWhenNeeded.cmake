# SPDX-License-Identifier: MIT
# tarvomime_open_when_needed(target library name): `target`, which links `library` and calls none of its
# functions by name, does not load it at its start. The macro and the variable `name` hold the name to open
# it by. They are left out where that cannot be done: there `target` is to call the functions.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:--as-needed TARVOMIME_HAS_AS_NEEDED)

function(tarvomime_open_when_needed target library name)
  unset(${name} CACHE)
  get_target_property(path ${library} IMPORTED_LOCATION)
  execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${path}
    OUTPUT_VARIABLE description ERROR_QUIET RESULT_VARIABLE failure)
  # A static library has no such name, and libraries of other systems tell none here.
  if(NOT TARVOMIME_HAS_AS_NEEDED OR failure OR NOT description MATCHES "SONAME +([^ \n]+)")
    return()
  endif()
  set(${name} ${CMAKE_MATCH_1} CACHE INTERNAL "What ${target} opens ${library} by")
  target_compile_definitions(${target} PRIVATE ${name}="${${name}}")
  # Still linked, for the folders of its headers and to be looked for where it was found.
  target_link_options(${target} PRIVATE LINKER:--as-needed)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:${CMAKE_DL_LIBS}>)
endfunction()
