# SPDX-License-Identifier: MIT
# A file's private names are its own, and several files use the same: a build that joins files to
# compile faster must leave these apart. The tests, whose files have namespaces, are joined by themselves.
set(CMAKE_UNITY_BUILD OFF)

# Flags that every target of this repository is built with, gathered in one interface target.
add_library(tarvomime_flags INTERFACE)
target_compile_features(tarvomime_flags INTERFACE cxx_std_20)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  # Files of 2 GiB are seen, and refused, as they are where a `long` has 64 bits.
  target_compile_definitions(tarvomime_flags INTERFACE _FILE_OFFSET_BITS=64)
endif()
target_compile_options(tarvomime_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
# __FILE__ reads "utility/EMAIL_Entity.cpp" wherever the tree was checked out, and also where a
# compiler cache hands the compiler paths that are relative to the build folder.
file(RELATIVE_PATH source_from_build ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
target_compile_options(tarvomime_flags INTERFACE
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=${source_from_build}=)
# The libraries call their own functions directly: nobody replaces them, and no program looks them up
# in all libraries when it starts.
include(CheckLinkerFlag)
check_linker_flag(CXX LINKER:-Bsymbolic-functions TARVOMIME_HAS_SYMBOLIC_FUNCTIONS)
if(TARVOMIME_HAS_SYMBOLIC_FUNCTIONS)
  target_link_options(tarvomime_flags INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:LINKER:-Bsymbolic-functions>)
endif()
if(TARVOMIME_WERROR)
  target_compile_options(tarvomime_flags INTERFACE -Werror)
endif()
if(TARVOMIME_SANITIZERS)
  target_compile_options(tarvomime_flags INTERFACE
    -fsanitize=${TARVOMIME_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # g++ takes a checked call through a pointer to a member for a read of the object's bytes.
  target_compile_options(tarvomime_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds>)
  target_link_options(tarvomime_flags INTERFACE -fsanitize=${TARVOMIME_SANITIZERS})
endif()

# What a library does not name as its own stays inside it.
function(tarvomime_hide target)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
  )
endfunction()
