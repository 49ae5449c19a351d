# SPDX-License-Identifier: MIT
set(CMAKE_SYSTEM_PROCESSOR ppc64le)
set(CMAKE_LIBRARY_ARCHITECTURE powerpc64le-linux-gnu)
set(TARVOMIME_GNU_TARGET powerpc64le-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-ppc64le)
include(${CMAKE_CURRENT_LIST_DIR}/debian-multiarch.cmake)
