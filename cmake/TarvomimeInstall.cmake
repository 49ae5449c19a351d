# SPDX-License-Identifier: MIT
# What an installed tree holds: the libraries, their public headers, the tool, and the two descriptions
# by which other projects find them (a CMake package and a pkg-config file).
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/${TARVOMIME_PACKAGE})
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/tarvomime${TARVOMIME_SUFFIX})

# Leaves the way from one folder of the installed tree to another in `result`: an installed tree can be
# moved, and installed into another prefix than was configured.
function(tarvomime_way_between from to result)
  file(RELATIVE_PATH way ${CMAKE_INSTALL_PREFIX}/${from} ${CMAKE_INSTALL_PREFIX}/${to})
  set(${result} ${way} PARENT_SCOPE)
endfunction()

# tarvomime_install_library(target export) installs a library, its headers and its CMake targets.
function(tarvomime_install_library target export)
  set_target_properties(${target} PROPERTIES
    INSTALL_RPATH "$ORIGIN" INSTALL_RPATH_USE_LINK_PATH ON)
  install(TARGETS ${target} EXPORT ${export}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION ${header_folder}
  )
  install(EXPORT ${export} NAMESPACE ${TARVOMIME_PACKAGE}:: DESTINATION ${package_folder})
endfunction()

# tarvomime_install_pkgconfig(name) installs NAME.pc under the generation's name.
function(tarvomime_install_pkgconfig name)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${name}${TARVOMIME_SUFFIX}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}${TARVOMIME_SUFFIX}.pc
    DESTINATION ${pkgconfig_folder})
endfunction()

if(TARVOMIME_QT_MAJOR EQUAL 6)
  set(TARVOMIME_PC_REQUIRES "Qt6Core >= 6.4 Qt6Core5Compat")
else()
  # Qt 5 refuses code that is not position independent, and its own description does not ask for it.
  set(TARVOMIME_PC_REQUIRES "Qt5Core >= 5.15")
  set(TARVOMIME_PC_CFLAGS "-fPIC")
endif()
# Whoever links a static library links what it is made of too.
set(TARVOMIME_EXTRA_NEEDS_ITS_OWN OFF)
if(NOT BUILD_SHARED_LIBS)
  set(TARVOMIME_EXTRA_NEEDS_ITS_OWN ${TARVOMIME_BUILD_EXTRA})
  set(TARVOMIME_EXTRA_PC_REQUIRES "libxml-2.0 uchardet")
endif()
tarvomime_way_between(${pkgconfig_folder} . TARVOMIME_PREFIX_FROM_PC)

tarvomime_install_library(tarvomime TarvomimeTargets)
tarvomime_install_pkgconfig(tarvomime)
if(TARGET tarvomime_extra)
  tarvomime_install_library(tarvomime_extra TarvomimeExtraTargets)
  tarvomime_install_pkgconfig(tarvomime-extra)
endif()

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/TarvomimeConfig.cmake.in ${TARVOMIME_PACKAGE}Config.cmake
  INSTALL_DESTINATION ${package_folder}
)
write_basic_package_version_file(
  ${TARVOMIME_PACKAGE}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/${TARVOMIME_PACKAGE}Config.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/${TARVOMIME_PACKAGE}ConfigVersion.cmake
  DESTINATION ${package_folder}
)

if(TARGET tarvomime_tool)
  set(tool tarvomime${TARVOMIME_SUFFIX})
  set_target_properties(tarvomime_tool PROPERTIES
    INSTALL_RPATH_USE_LINK_PATH ON OUTPUT_NAME ${tool})
  install(TARGETS tarvomime_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/tarvomime.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 RENAME ${tool}.1)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/tarvomime.schema.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/${tool})
  # They are made for a tool of the plain name.
  if(tool STREQUAL tarvomime)
    set(TARVOMIME_ZSH_FOLDER ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING
      "where completions for zsh go; distributions have their own place")
    set(completions ${PROJECT_SOURCE_DIR}/tools/tarvomime/completion)
    install(FILES ${completions}/tarvomime.bash
      DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tarvomime)
    install(FILES ${completions}/_tarvomime DESTINATION ${TARVOMIME_ZSH_FOLDER})
    install(FILES ${completions}/tarvomime.fish
      DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
  endif()
endif()

if(PROJECT_IS_TOP_LEVEL)
  add_custom_target(uninstall
    COMMAND ${CMAKE_COMMAND}
      -D MANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
      -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake
    COMMENT "Removing what the last installation has put down" VERBATIM)
endif()
