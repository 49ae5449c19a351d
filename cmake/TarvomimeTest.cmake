# SPDX-License-Identifier: MIT
# tarvomime_add_test(name source...) builds one GoogleTest program and registers it under its name.
function(tarvomime_add_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE tarvomime)
  tarvomime_register_test(${name})
endfunction()

# tarvomime_add_internal_test(name source...) does the same for tests of what the shared library
# hides: the library's own object files become part of the program.
function(tarvomime_add_internal_test name)
  add_executable(${name} ${ARGN})
  tarvomime_link_internals(${name})
  tarvomime_register_test(${name})
endfunction()

function(tarvomime_link_internals name)
  if(NOT TARGET tarvomime_internals)
    add_library(tarvomime_internals STATIC $<TARGET_OBJECTS:tarvomime>)
    set_target_properties(tarvomime_internals PROPERTIES LINKER_LANGUAGE CXX)
    get_target_property(libraries tarvomime LINK_LIBRARIES)
    target_link_libraries(tarvomime_internals PUBLIC ${libraries})
  endif()
  target_link_libraries(${name} PRIVATE tarvomime_internals)
endfunction()

# Leaves in `result` the path by which a program of this build is started from a script or from another
# program: its own, or that of a script which starts the emulator for it.
function(tarvomime_runnable target result)
  set(path $<TARGET_FILE:${target}>)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    string(REPLACE ";" " " emulator "${CMAKE_CROSSCOMPILING_EMULATOR}")
    set(starter ${CMAKE_CURRENT_BINARY_DIR}/run-${target})
    file(GENERATE OUTPUT ${starter} CONTENT "#!/bin/sh\nexec ${emulator} ${path} \"$@\"\n"
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set(path ${starter})
  endif()
  set(${result} ${path} PARENT_SCOPE)
endfunction()

# What all test programs are compiled with: with equal flags they can share one precompiled header.
function(tarvomime_compile_as_test name)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE tarvomime_flags GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    TARVOMIME_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TARVOMIME_CORPUS_DIR="${PROJECT_SOURCE_DIR}/../shared/corpus")
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    target_compile_definitions(${name} PRIVATE TARVOMIME_EMULATED)
  endif()
  tarvomime_leave_unoptimised(${name})
endfunction()

# Test code is compiled far more often than it runs: optimising it would only cost time, with sanitizers
# most of all. What is tested is compiled as the preset says. Debian's hardening wants optimised code.
function(tarvomime_leave_unoptimised name)
  target_compile_options(${name} PRIVATE -O0 -U_FORTIFY_SOURCE)
endfunction()

tarvomime_add_headers(tarvomime_unoptimised_headers)
tarvomime_leave_unoptimised(tarvomime_unoptimised_headers)

function(tarvomime_register_test name)
  tarvomime_compile_as_test(${name})
  target_precompile_headers(${name} REUSE_FROM tarvomime_test_headers)
  tarvomime_join_sources(${name})
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
  # They take longer than other tests: started first, they leave no processor idle at the end.
  set_tests_properties(${name} PROPERTIES COST 10)
endfunction()

# What test sources share (the test framework's templates) takes the compiler as long as what they say, so
# it reads several at a time. NAME_test.cpp has a namespace of its own for that; other sources stay alone.
function(tarvomime_join_sources name)
  if(NOT TARVOMIME_JOIN_TESTS)
    return()
  endif()
  get_target_property(alone ${name} SOURCES)
  list(FILTER alone EXCLUDE REGEX "_test\\.cpp$")
  set_source_files_properties(${alone} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON)
  # To the compiler a joined file is a header, from which it expects no fixture with a private name.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()
