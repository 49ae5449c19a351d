# SPDX-License-Identifier: MIT
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(TARVOMIME_GNU_TARGET i686-linux-gnu)
include(${CMAKE_CURRENT_LIST_DIR}/debian-multiarch.cmake)
