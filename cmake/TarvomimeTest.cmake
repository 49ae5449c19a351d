# SPDX-License-Identifier: MIT
# tarvomime_add_test(name source...) builds one GoogleTest program and registers it under its name.
function(tarvomime_add_test name)
  add_executable(${name} ${ARGN})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE tarvomime tarvomime_flags GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE
    TARVOMIME_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TARVOMIME_CORPUS_DIR="${PROJECT_SOURCE_DIR}/../shared/corpus")
  target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/Precompiled.h)
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
endfunction()
