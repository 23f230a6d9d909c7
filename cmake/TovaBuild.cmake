# What every target of the house shares: language level, warnings, sanitizers, caches, and one function a kind of target.
include(GNUInstallDirs)
include(GenerateExportHeader)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# An installed tree works wherever it is moved to.
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
# Line tables are enough for stack traces and keep objects small.
set(CMAKE_CXX_FLAGS_DEBUG "-g1 -O1")

option(TOVA_SANITIZE "Address and undefined-behaviour sanitizers" OFF)

find_program(TOVA_CCACHE ccache)
if(TOVA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this sloppiness ccache refuses translation units with a precompiled header. The base directory lets a
  # second clone hit what the first one compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros
      CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${TOVA_CCACHE})
endif()
find_program(TOVA_LLD ld.lld)
if(TOVA_LLD)
  add_link_options(-fuse-ld=lld)
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
                    $<$<BOOL:${TOVA_CCACHE}>:-fpch-preprocess>)
if(TOVA_WERROR)
  # What the optimiser guesses stays a warning: at -O3 GCC 12 has false ones inside its own headers.
  add_compile_options(-Werror -Wno-error=array-bounds -Wno-error=maybe-uninitialized -Wno-error=restrict
                      -Wno-error=stringop-overflow -Wno-error=stringop-overread -Wno-error=dangling-pointer
                      -Wno-error=use-after-free -Wno-error=free-nonheap-object)
endif()
# What Qt 5.15 has deprecated is gone in Qt 6: refuse it from the start.
add_compile_definitions(QT_DISABLE_DEPRECATED_BEFORE=0x050F00 QT_NO_CAST_FROM_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)

if(TOVA_SANITIZE)
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow,integer-divide-by-zero
                      -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined,float-cast-overflow,integer-divide-by-zero)
  add_compile_definitions(TOVA_SANITIZED)
endif()

# Of every ctest entry: no display needed, and under the sanitizers leaks that are not the toolkit's are errors.
set(TOVA_TEST_ENVIRONMENT
    QT_QPA_PLATFORM=offscreen
    ASAN_OPTIONS=detect_leaks=1
    LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0
    UBSAN_OPTIONS=print_stacktrace=1)

# tova_library(NAME vetra NAMESPACE Vetra [PCH header] SOURCES ... [DEPS public...] [PRIVATE_DEPS ...])
#
# Makes <Namespace>::<name> from sources beside the CMakeLists.txt, with its public headers under
# export/include/<name>/ and the generated <name>/<name>_export.h (macro <NAME>_EXPORT).
function(tova_library)
  cmake_parse_arguments(L "" "NAME;NAMESPACE;PCH" "SOURCES;DEPS;PRIVATE_DEPS" ${ARGN})
  add_library(${L_NAME} ${L_SOURCES})
  add_library(${L_NAMESPACE}::${L_NAME} ALIAS ${L_NAME})
  target_include_directories(${L_NAME}
    PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/export/include>
           $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/export/include>
           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_features(${L_NAME} PUBLIC cxx_std_20)
  target_link_libraries(${L_NAME} PUBLIC ${L_DEPS} PRIVATE ${L_PRIVATE_DEPS})
  if(L_PCH)
    target_precompile_headers(${L_NAME} PRIVATE ${L_PCH})
  endif()
  generate_export_header(${L_NAME}
    EXPORT_FILE_NAME ${CMAKE_CURRENT_BINARY_DIR}/export/include/${L_NAME}/${L_NAME}_export.h)
  set_target_properties(${L_NAME} PROPERTIES
    OUTPUT_NAME tova_${L_NAME} EXPORT_NAME ${L_NAME}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  if(L_NAME STREQUAL "tova")
    set_target_properties(${L_NAME} PROPERTIES OUTPUT_NAME tova)
  endif()
  install(TARGETS ${L_NAME} EXPORT ${L_NAMESPACE}Targets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
  install(DIRECTORY export/include/ ${CMAKE_CURRENT_BINARY_DIR}/export/include/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev FILES_MATCHING PATTERN "*.h")
  install(EXPORT ${L_NAMESPACE}Targets NAMESPACE ${L_NAMESPACE}::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tova COMPONENT dev)
endfunction()

# tova_test(NAME vetra_test SOURCES ... DEPS ... [PRIVATE_INCLUDES dirs])
#
# One executable and one ctest entry a suite. Suites that link Qt share the precompiled header of tova_test_support.
function(tova_test)
  cmake_parse_arguments(T "" "NAME" "SOURCES;DEPS;PRIVATE_INCLUDES" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  target_link_libraries(${T_NAME} PRIVATE ${T_DEPS} GTest::gmock)
  target_include_directories(${T_NAME} PRIVATE ${T_PRIVATE_INCLUDES} ${CMAKE_SOURCE_DIR}/tests)
  if("tova_test_support" IN_LIST T_DEPS)
    target_precompile_headers(${T_NAME} REUSE_FROM tova_test_support)
  else()
    target_link_libraries(${T_NAME} PRIVATE GTest::gmock_main)
  endif()
  add_test(NAME ${T_NAME} COMMAND ${T_NAME})
  set_tests_properties(${T_NAME} PROPERTIES TIMEOUT 600 ENVIRONMENT "${TOVA_TEST_ENVIRONMENT}")
endfunction()
