# SPDX-License-Identifier: MIT
# Finds the Qt generation asked for. Qt 6 moved QTextCodec into Core5Compat. Global, since a project
# around this one links the library from a folder that has not looked for Qt itself.
#
# Both generations live side by side in one prefix: the Qt 5 build bears its generation in the names of
# its libraries, its header folder and its packages.
if(TARVOMIME_QT_MAJOR EQUAL 6)
  find_package(Qt6 6.4 REQUIRED GLOBAL COMPONENTS Core Core5Compat)
  set(TARVOMIME_QT_LIBRARIES Qt6::Core Qt6::Core5Compat)
  set(TARVOMIME_PACKAGE Tarvomime)
  set(TARVOMIME_SUFFIX "")
elseif(TARVOMIME_QT_MAJOR EQUAL 5)
  find_package(Qt5 5.15 REQUIRED GLOBAL COMPONENTS Core)
  set(TARVOMIME_QT_LIBRARIES Qt5::Core)
  set(TARVOMIME_PACKAGE TarvomimeQt5)
  set(TARVOMIME_SUFFIX -qt5)
else()
  message(FATAL_ERROR "TARVOMIME_QT_MAJOR must be 5 or 6, not '${TARVOMIME_QT_MAJOR}'")
endif()
