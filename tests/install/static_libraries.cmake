# SPDX-License-Identifier: MIT
# BUILD_SHARED_LIBS=OFF gives static libraries that consumers find and link, nothing shared, no tests;
# and what was installed can be taken away again.
include(${CMAKE_CURRENT_LIST_DIR}/Consumers.cmake)
file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
install_libraries(${SOURCE} ${WORK}/build ${prefix}
  -D BUILD_SHARED_LIBS=OFF -D TARVOMIME_QT_MAJOR=${QT_MAJOR})

execute_process(COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build -N OUTPUT_VARIABLE tests)
if(NOT tests MATCHES "Total Tests: 0")
  message(FATAL_ERROR "BUILD_TESTING=OFF has left tests:\n${tests}")
endif()
file(GLOB_RECURSE shared ${prefix}/*.so*)
if(shared)
  message(FATAL_ERROR "shared libraries were installed: ${shared}")
endif()

set(suffix "")
set(package Tarvomime)
if(QT_MAJOR EQUAL 5)
  set(suffix -qt5)
  set(package TarvomimeQt5)
endif()
set(consumers ${CMAKE_CURRENT_LIST_DIR})
consume(${consumers}/consumer ${WORK}/consumer ${prefix} cmake ${package})
consume(${consumers}/consumer ${WORK}/consumer_pc ${prefix} pkgconfig tarvomime${suffix})
consume(${consumers}/extra_consumer ${WORK}/extra ${prefix} cmake ${package})
consume(${consumers}/extra_consumer ${WORK}/extra_pc ${prefix} pkgconfig tarvomime-extra${suffix})

run(${CMAKE_COMMAND} --build ${WORK}/build --target uninstall)
file(GLOB_RECURSE left ${prefix}/*)
if(left)
  message(FATAL_ERROR "the uninstall target has left: ${left}")
endif()
