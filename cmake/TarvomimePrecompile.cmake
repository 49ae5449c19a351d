# SPDX-License-Identifier: MIT
# The headers of Qt and of the language that nearly every file reads take longer to parse than the file
# takes to compile, so they are parsed once for all targets with the same flags. Ours are not among them:
# every file includes what it uses, and where this is off (preset clang) none can be forgotten.
option(TARVOMIME_PRECOMPILE "Parse the headers of Qt and the language once" ON)

# tarvomime_add_headers(name) adds a target that precompiles headers for others and compiles nothing.
function(tarvomime_add_headers name)
  set(empty_source ${PROJECT_BINARY_DIR}/Headers.cpp)
  file(TOUCH ${empty_source})
  add_library(${name} OBJECT EXCLUDE_FROM_ALL ${empty_source})
  target_link_libraries(${name} PRIVATE ${TARVOMIME_QT_LIBRARIES} tarvomime_flags)
  tarvomime_precompile(${name} ${name})
endfunction()

# tarvomime_precompile(target [owner]) takes what `owner` has precompiled: a target with the same flags and
# no definition that `target` lacks. Without one it takes what the libraries and the tool share.
function(tarvomime_precompile target)
  if(NOT TARVOMIME_PRECOMPILE)
    return()
  endif()
  set(owner tarvomime_headers)
  if(ARGC GREATER 1)
    set(owner ${ARGV1})
  endif()
  if(owner STREQUAL target)
    target_precompile_headers(${target} PRIVATE
      <QByteArray> <QFile> <QString> <QStringList>
      <algorithm> <array> <memory> <optional> <string> <string_view> <vector>)
  else()
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()

tarvomime_add_headers(tarvomime_headers)
tarvomime_hide(tarvomime_headers)
