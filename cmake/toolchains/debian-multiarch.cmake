# SPDX-License-Identifier: MIT
# What all the toolchains here share: Debian's cross compiler, the foreign libraries that multiarch puts
# beside the native ones, and the native Qt's code generators.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_CXX_COMPILER ${TARVOMIME_GNU_TARGET}-g++)
set(QT_HOST_PATH /usr)
# Programs are run here and must be native; libraries and headers are the foreign ones.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/pkgconfig:/usr/share/pkgconfig)
