# Writes the pages, and fails on what Doxygen finds wrong: a broken reference, a parameter that is not there, a class or
# free function without a word. What says all by its name may stand without: members, enumerations, operators, and
# conversions to the toolkit.
file(REMOVE_RECURSE ${FOLDER}/html)
execute_process(COMMAND ${DOXYGEN} ${FOLDER}/Doxyfile COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS ${FOLDER}/warnings.txt warnings)
list(FILTER warnings EXCLUDE REGEX "Member .* of (class|struct) .* is not documented\\.$")
list(FILTER warnings EXCLUDE REGEX "Member .* \\((enumeration|typedef)\\) .* is not documented\\.$")
list(FILTER warnings EXCLUDE REGEX "Member (operator|toQt\\(|fromQt\\().* is not documented\\.$")
if(warnings)
  list(JOIN warnings "\n" warnings)
  message(FATAL_ERROR "Doxygen found:\n${warnings}")
endif()
file(COPY ${SOURCES}/examples DESTINATION ${FOLDER}/html FILES_MATCHING PATTERN "*.cpp" PATTERN "*.h")
if(NOT EXISTS ${FOLDER}/html/index.html)
  message(FATAL_ERROR "Doxygen wrote no pages")
endif()
