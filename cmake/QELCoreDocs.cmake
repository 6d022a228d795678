# The API reference (Doxygen): target `docs`, and the test `docs`, which fails
# on any warning. The headers of the subsystems listed here are covered; every
# public class and function in them is documented.
# Each entry is a directory below qelcore/ (its own headers, not those of
# subdirectories); the patterns name headers left out for now.
set(QELCORE_DOCUMENTED_SUBSYSTEMS . io pi qce qce/net++ qcs qp rmi sa std ucs)
set(QELCORE_DOCS_EXCLUDE)

find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
  return()
endif()
set(QELCORE_DOCS_OUTPUT ${PROJECT_BINARY_DIR}/docs)
set(QELCORE_DOCS_INPUT "")
foreach(subsystem ${QELCORE_DOCUMENTED_SUBSYSTEMS})
  string(APPEND QELCORE_DOCS_INPUT " ${PROJECT_SOURCE_DIR}/qelcore/${subsystem}")
endforeach()
string(REPLACE ";" " " QELCORE_DOCS_EXCLUDE "${QELCORE_DOCS_EXCLUDE}")
configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${QELCORE_DOCS_OUTPUT}/Doxyfile @ONLY)
add_custom_target(docs
  COMMAND ${DOXYGEN_EXECUTABLE} ${QELCORE_DOCS_OUTPUT}/Doxyfile
  WORKING_DIRECTORY ${QELCORE_DOCS_OUTPUT}
  COMMENT "API reference in ${QELCORE_DOCS_OUTPUT}/html/index.html")
if(QELCORE_BUILD_TESTS AND NOT CMAKE_CROSSCOMPILING)
  add_test(NAME docs COMMAND ${DOXYGEN_EXECUTABLE} ${QELCORE_DOCS_OUTPUT}/Doxyfile WORKING_DIRECTORY ${QELCORE_DOCS_OUTPUT})
  set_tests_properties(docs PROPERTIES LABELS docs)
endif()
