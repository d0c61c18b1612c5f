include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS kelmedia orvmedialib
  EXPORT OrvMediaLibTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

install(DIRECTORY "${PROJECT_SOURCE_DIR}/src/"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/OrvMediaLib"
  FILES_MATCHING PATTERN "*.h")

set(ORVMEDIALIB_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/OrvMediaLib")
install(EXPORT OrvMediaLibTargets
  NAMESPACE OrvMediaLib::
  DESTINATION "${ORVMEDIALIB_CMAKE_DIR}")

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/OrvMediaLibConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/OrvMediaLibConfig.cmake"
  INSTALL_DESTINATION "${ORVMEDIALIB_CMAKE_DIR}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/OrvMediaLibConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/OrvMediaLibConfig.cmake"
  "${PROJECT_BINARY_DIR}/OrvMediaLibConfigVersion.cmake"
  DESTINATION "${ORVMEDIALIB_CMAKE_DIR}")
