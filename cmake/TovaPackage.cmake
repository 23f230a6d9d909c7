# find_package(Tova) for hosts: one package, one export file a library.
include(CMakePackageConfigHelpers)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/TovaConfig.cmake.in ${CMAKE_BINARY_DIR}/TovaConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tova)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TovaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/TovaConfig.cmake ${CMAKE_BINARY_DIR}/TovaConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tova COMPONENT dev)
install(FILES ${CMAKE_SOURCE_DIR}/CHANGES.md
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/tova2 COMPONENT runtime)

# cpack makes two Debian packages: what programs need to run, and what they are built with. Version, summary and the
# needed libraries come from elsewhere: project(), and the tool that reads what the binaries are linked to.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tova2)
set(CPACK_PACKAGE_VENDOR "Tova2 developers")
set(CPACK_PACKAGE_CONTACT "Tova2 developers")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# So that packages of hosts come to depend on these.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "Shared libraries that keep, draw, query and edit a diagram as a scene of\nnodes, and tovaview, a viewer of Graphviz\
 diagrams on top of them.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME tova2)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS graphviz)

set(CPACK_COMPONENT_DEV_DESCRIPTION "Headers and CMake package for programs that use the libraries of tova2.")
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME tova2-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "qtbase5-dev (>= 5.15), libqt5svg5-dev (>= 5.15), libboost-dev (>= 1.74)")
set(CPACK_COMPONENTS_ALL runtime dev)
include(CPack)
