# SPDX-License-Identifier: MIT
# Finds the Qt generation asked for. Qt 6 moved QTextCodec into Core5Compat.
if(TARVOMIME_QT_MAJOR EQUAL 6)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Core5Compat)
  set(TARVOMIME_QT_LIBRARIES Qt6::Core Qt6::Core5Compat)
elseif(TARVOMIME_QT_MAJOR EQUAL 5)
  find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
  set(TARVOMIME_QT_LIBRARIES Qt5::Core)
else()
  message(FATAL_ERROR "TARVOMIME_QT_MAJOR must be 5 or 6, not '${TARVOMIME_QT_MAJOR}'")
endif()
