# find_package(Tova) for hosts: one package, one export file a library.
include(CMakePackageConfigHelpers)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/TovaConfig.cmake.in ${CMAKE_BINARY_DIR}/TovaConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tova)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TovaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/TovaConfig.cmake ${CMAKE_BINARY_DIR}/TovaConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tova)
