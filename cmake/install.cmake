# What an installed steprt is: headers, library, CMake package, pkg-config file. All of it may be moved as a whole.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/steprt)
set(pkgConfigDir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(
  TARGETS steprt
  EXPORT steprt-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/steprt DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# The command is a package component of its own, which may be missing.
install(FILES ${CMAKE_CURRENT_LIST_DIR}/steprt_add_schema.cmake DESTINATION ${packageDir})
if(STEPRT_HAS_TOOLS)
  install(TARGETS steprt_command EXPORT steprt-command RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/tools/steprt/steprt.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/steprt/completion.bash
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME steprt)
  install(EXPORT steprt-command NAMESPACE steprt:: DESTINATION ${packageDir})
endif()

install(EXPORT steprt-targets NAMESPACE steprt:: DESTINATION ${packageDir})
configure_package_config_file(
  ${CMAKE_CURRENT_LIST_DIR}/steprt-config.cmake.in ${PROJECT_BINARY_DIR}/steprt-config.cmake
  INSTALL_DESTINATION ${packageDir}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/steprt-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/steprt-config.cmake ${PROJECT_BINARY_DIR}/steprt-config-version.cmake
        DESTINATION ${packageDir})

# The pkg-config file finds its prefix from its own place. Folders that were given as absolute ones stay where they are.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(pcPrefix ${CMAKE_INSTALL_PREFIX})
else()
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${pkgConfigDir}
             OUTPUT_VARIABLE wayUp)
  set(pcPrefix "\${pcfiledir}/${wayUp}")
endif()
set(pcLibDir "\${prefix}")
cmake_path(APPEND pcLibDir ${CMAKE_INSTALL_LIBDIR})
set(pcIncludeDir "\${prefix}")
cmake_path(APPEND pcIncludeDir ${CMAKE_INSTALL_INCLUDEDIR})
configure_file(${CMAKE_CURRENT_LIST_DIR}/steprt.pc.in ${PROJECT_BINARY_DIR}/steprt.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/steprt.pc DESTINATION ${pkgConfigDir})
