# SPDX-License-Identifier: MIT
# Builds the consumer project against the installed tree, the way WAY says, and runs it.
set(flags "-Wall -Wextra -Wpedantic -Wshadow -Werror")
if(SANITIZERS)
  string(APPEND flags " -fsanitize=${SANITIZERS}")
endif()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

if(WAY STREQUAL "cmake")
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G Ninja
    -D CMAKE_CXX_COMPILER=${COMPILER} -D "CMAKE_CXX_FLAGS=${flags}" -D CMAKE_PREFIX_PATH=${PREFIX}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK} COMMAND_ERROR_IS_FATAL ANY)
else()
  set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
  execute_process(COMMAND pkg-config --cflags --libs ${PACKAGE}
    OUTPUT_VARIABLE package OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(words UNIX_COMMAND "${flags} ${package}")
  execute_process(COMMAND ${COMPILER} -std=c++17 ${SOURCE}/main.cpp -o ${WORK}/consumer ${words}
    COMMAND_ERROR_IS_FATAL ANY)
endif()

set(ENV{LD_LIBRARY_PATH} ${PREFIX}/${LIBDIR})
execute_process(COMMAND ${WORK}/consumer COMMAND_ERROR_IS_FATAL ANY)
