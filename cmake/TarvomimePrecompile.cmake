# SPDX-License-Identifier: MIT
# The headers of Qt and of the language that nearly every file reads take longer to parse than the file
# takes to compile, so each library parses them once, and so do programs of one kind. Ours are not among
# them: every file includes what it uses, and where this is off (preset clang) none can be forgotten.
option(TARVOMIME_PRECOMPILE "Parse the headers of Qt and the language once for each library" ON)

# tarvomime_precompile(target [owner]) takes what `owner` has precompiled, if one is named: a target with
# the same flags.
function(tarvomime_precompile target)
  if(NOT TARVOMIME_PRECOMPILE)
    return()
  endif()
  if(ARGC GREATER 1)
    target_precompile_headers(${target} REUSE_FROM ${ARGV1})
  else()
    target_precompile_headers(${target} PRIVATE
      <QByteArray> <QFile> <QString> <QStringList>
      <algorithm> <array> <memory> <optional> <string> <string_view> <vector>)
  endif()
endfunction()
