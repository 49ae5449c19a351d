# SPDX-License-Identifier: MIT
# What an installed tree holds: the libraries, their public headers, the tool, and the two descriptions
# by which other projects find them (a CMake package and a pkg-config file).
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tarvomime)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS tarvomime EXPORT TarvomimeTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tarvomime
)
install(EXPORT TarvomimeTargets NAMESPACE Tarvomime:: DESTINATION ${package_folder})
if(TARGET tarvomime_extra)
  install(TARGETS tarvomime_extra EXPORT TarvomimeExtraTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tarvomime
  )
  install(EXPORT TarvomimeExtraTargets NAMESPACE Tarvomime:: DESTINATION ${package_folder})
endif()

configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/TarvomimeConfig.cmake.in TarvomimeConfig.cmake
  INSTALL_DESTINATION ${package_folder}
)
write_basic_package_version_file(TarvomimeConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/TarvomimeConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/TarvomimeConfigVersion.cmake
  DESTINATION ${package_folder}
)

# The prefix is written relative to the file, so that an installed tree can be moved.
file(RELATIVE_PATH TARVOMIME_PREFIX_FROM_PC
  ${CMAKE_INSTALL_PREFIX}/${pkgconfig_folder} ${CMAKE_INSTALL_PREFIX})
if(TARVOMIME_QT_MAJOR EQUAL 6)
  set(TARVOMIME_PC_REQUIRES "Qt6Core >= 6.4 Qt6Core5Compat")
else()
  # Qt 5 refuses code that is not position independent, and its own description does not ask for it.
  set(TARVOMIME_PC_REQUIRES "Qt5Core >= 5.15")
  set(TARVOMIME_PC_CFLAGS "-fPIC")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/tarvomime.pc.in tarvomime.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tarvomime.pc DESTINATION ${pkgconfig_folder})
if(TARGET tarvomime_extra)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/tarvomime-extra.pc.in tarvomime-extra.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tarvomime-extra.pc DESTINATION ${pkgconfig_folder})
endif()

if(TARGET tarvomime_tool)
  install(TARGETS tarvomime_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/tarvomime.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
