# SPDX-License-Identifier: MIT
# Shared by the scripts of this folder: projects are built and run the way their users do it. COMPILER,
# SANITIZERS and TOOLCHAIN say how the tree under test was built.
set(consumer_flags "-Wall -Wextra -Wpedantic -Wshadow -Werror")
if(SANITIZERS)
  string(APPEND consumer_flags " -fsanitize=${SANITIZERS}")
endif()
set(configure_options -G Ninja)
if(TOOLCHAIN)
  # Says which emulator runs the programs, and where pkg-config looks.
  include(${TOOLCHAIN})
  list(APPEND configure_options -D CMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
else()
  list(APPEND configure_options -D CMAKE_CXX_COMPILER=${COMPILER})
endif()

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# configure(source folder option...)
function(configure source folder)
  run(${CMAKE_COMMAND} -S ${source} -B ${folder} ${configure_options} ${ARGN})
endfunction()

# Builds and installs this repository as somebody does who wants nothing but the libraries. Compiled
# without optimising, since it is the arrangement that is tried.
function(install_libraries source folder prefix)
  configure(${source} ${folder} -D CMAKE_BUILD_TYPE= -D CMAKE_INSTALL_PREFIX=${prefix}
    -D BUILD_TESTING=OFF -D TARVOMIME_WERROR=OFF -D TARVOMIME_BUILD_TOOL=OFF ${ARGN})
  run(${CMAKE_COMMAND} --build ${folder})
  run(${CMAKE_COMMAND} --install ${folder})
endfunction()

# consume(source folder prefix way package): builds the project against what is installed in `prefix`,
# found by CMake or by pkg-config, and runs it.
function(consume source folder prefix way package)
  if(way STREQUAL "cmake")
    configure(${source} ${folder} -D "CMAKE_CXX_FLAGS=${consumer_flags}"
      -D CMAKE_PREFIX_PATH=${prefix} -D TARVOMIME_PACKAGE=${package})
    run(${CMAKE_COMMAND} --build ${folder})
  else()
    file(MAKE_DIRECTORY ${folder})
    set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
    execute_process(COMMAND pkg-config --cflags --libs ${package}
      OUTPUT_VARIABLE words OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(words UNIX_COMMAND "${consumer_flags} ${words}")
    run(${COMPILER} -std=c++17 ${source}/main.cpp -o ${folder}/consumer ${words})
  endif()
  set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIBDIR})
  run(${CMAKE_CROSSCOMPILING_EMULATOR} ${folder}/consumer)
endfunction()
