# SPDX-License-Identifier: MIT
# The builds on Qt 5 and on Qt 6 stand in one prefix, a consumer of each works, and a project that has
# chosen one Qt is told so in words when it asks for the other's package.
include(${CMAKE_CURRENT_LIST_DIR}/Consumers.cmake)
file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
foreach(qt 5 6)
  install_libraries(${SOURCE} ${WORK}/build${qt} ${prefix} -D TARVOMIME_QT_MAJOR=${qt})
endforeach()

set(consumer ${CMAKE_CURRENT_LIST_DIR}/consumer)
consume(${consumer} ${WORK}/consumer5 ${prefix} cmake TarvomimeQt5)
consume(${consumer} ${WORK}/consumer6 ${prefix} cmake Tarvomime)
consume(${consumer} ${WORK}/consumer5_pc ${prefix} pkgconfig tarvomime-qt5)
consume(${consumer} ${WORK}/consumer6_pc ${prefix} pkgconfig tarvomime)

# expect_refusal(qt package other): a project on `qt` asks for `package` and is shown `other`.
function(expect_refusal qt package other)
  execute_process(COMMAND ${CMAKE_COMMAND} -S ${consumer} -B ${WORK}/refused${qt} ${configure_options}
    -D CMAKE_PREFIX_PATH=${prefix} -D TARVOMIME_PACKAGE=${package} -D CHOSEN_QT=Qt${qt}
    RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE errors)
  string(REGEX REPLACE "[ \n]+" " " errors "${errors}")
  if(status EQUAL 0 OR NOT errors MATCHES "has chosen Qt ${qt}.*find_package\\(${other}\\)")
    message(FATAL_ERROR "a project on Qt ${qt} that asks for ${package} gets ${status}: ${errors}")
  endif()
endfunction()
expect_refusal(5 Tarvomime TarvomimeQt5)
expect_refusal(6 TarvomimeQt5 Tarvomime)
