# Target documentation: pages of the public headers and the guide, under documentation/html of the build tree. It fails
# on what Doxygen finds wrong, see RunDoxygen.cmake. Not part of "all".
find_program(TOVA_DOXYGEN doxygen)
if(TOVA_DOXYGEN)
  set(TOVA_DOCUMENTATION ${CMAKE_BINARY_DIR}/documentation)
  set(TOVA_PUBLIC_HEADERS "")
  foreach(library IN ITEMS platform/vemit platform/vetra platform/host platform/widgets tova tova/webview)
    string(APPEND TOVA_PUBLIC_HEADERS " \"${CMAKE_SOURCE_DIR}/${library}/export/include\"")
  endforeach()
  configure_file(${CMAKE_SOURCE_DIR}/docs/Doxyfile.in ${TOVA_DOCUMENTATION}/Doxyfile @ONLY)
  add_custom_target(documentation
    COMMAND ${CMAKE_COMMAND} -DDOXYGEN=${TOVA_DOXYGEN} -DFOLDER=${TOVA_DOCUMENTATION}
            -DSOURCES=${CMAKE_SOURCE_DIR} -P ${CMAKE_SOURCE_DIR}/cmake/RunDoxygen.cmake
    COMMENT "Pages of the public headers: ${TOVA_DOCUMENTATION}/html/index.html"
    VERBATIM)
endif()
