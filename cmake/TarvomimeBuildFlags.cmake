# SPDX-License-Identifier: MIT
# Flags that every target of this repository is built with, gathered in one interface target.
add_library(tarvomime_flags INTERFACE)
target_compile_features(tarvomime_flags INTERFACE cxx_std_20)
target_compile_options(tarvomime_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
# __FILE__ reads "utility/EMAIL_Entity.cpp" wherever the tree was checked out, and also where a
# compiler cache hands the compiler paths that are relative to the build folder.
file(RELATIVE_PATH source_from_build ${CMAKE_BINARY_DIR} ${PROJECT_SOURCE_DIR})
target_compile_options(tarvomime_flags INTERFACE
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=${source_from_build}=)
if(TARVOMIME_WERROR)
  target_compile_options(tarvomime_flags INTERFACE -Werror)
endif()
if(TARVOMIME_SANITIZERS)
  target_compile_options(tarvomime_flags INTERFACE
    -fsanitize=${TARVOMIME_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarvomime_flags INTERFACE -fsanitize=${TARVOMIME_SANITIZERS})
endif()
