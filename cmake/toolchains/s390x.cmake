# SPDX-License-Identifier: MIT
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_LIBRARY_ARCHITECTURE s390x-linux-gnu)
set(TARVOMIME_GNU_TARGET s390x-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian-multiarch.cmake)
