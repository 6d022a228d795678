# Installation: headers, the library, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS qelcore EXPORT QELCoreTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/qelcore/
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qelcore
  FILES_MATCHING PATTERN "*.h"
  PATTERN "platform" EXCLUDE
  PATTERN "detail" EXCLUDE)
install(EXPORT QELCoreTargets
  NAMESPACE QELCore::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QELCore)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QELCoreConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QELCoreConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QELCore)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QELCoreConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QELCoreConfig.cmake ${PROJECT_BINARY_DIR}/QELCoreConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/QELCore)

configure_file(${PROJECT_SOURCE_DIR}/cmake/qelcore.pc.in ${PROJECT_BINARY_DIR}/qelcore.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qelcore.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
