# SPDX-License-Identifier: MIT
# A project that holds this repository as a part of its own builds, runs, and finds nothing in its house
# that it did not ask for.
include(${CMAKE_CURRENT_LIST_DIR}/Consumers.cmake)
file(REMOVE_RECURSE ${WORK})
configure(${CMAKE_CURRENT_LIST_DIR}/subproject ${WORK}/build
  -D TARVOMIME_SOURCE=${SOURCE} -D WAY=${WAY} -D TARVOMIME_QT_MAJOR=${QT_MAJOR}
  -D CMAKE_UNITY_BUILD=ON -D CMAKE_INSTALL_PREFIX=${WORK}/prefix)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${CMAKE_CROSSCOMPILING_EMULATOR} ${WORK}/build/consumer)

run(${CMAKE_COMMAND} --install ${WORK}/build)
file(GLOB_RECURSE installed ${WORK}/prefix/*)
if(installed)
  message(FATAL_ERROR "the subproject has installed: ${installed}")
endif()
