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

# pkg-config, for builds that don't use CMake. Boost ships no .pc files, so
# its libraries are named directly.
set(ORVMEDIALIB_PC_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH ORVMEDIALIB_PC_TO_PREFIX "/prefix/${ORVMEDIALIB_PC_DIR}" "/prefix")
string(REGEX REPLACE "/$" "" ORVMEDIALIB_PC_TO_PREFIX "${ORVMEDIALIB_PC_TO_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/orvmedialib.pc.in"
  "${PROJECT_BINARY_DIR}/orvmedialib.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/orvmedialib.pc" DESTINATION "${ORVMEDIALIB_PC_DIR}")
