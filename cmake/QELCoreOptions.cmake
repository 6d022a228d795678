# Compiler settings shared by every target of the project.

add_library(qelcore_warnings INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(qelcore_warnings INTERFACE -Wall -Wextra)
  if(QELCORE_WERROR)
    target_compile_options(qelcore_warnings INTERFACE -Werror)
  endif()
endif()

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  # Source positions (__FILE__, the callers that throw functions report) are
  # written relative to the tree: the same on every machine, and short enough
  # for an exception's file-name field.
  add_compile_options(-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
endif()

if(QELCORE_SANITIZE)
  add_compile_options(-fsanitize=${QELCORE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${QELCORE_SANITIZE})
endif()

if(QELCORE_LIBFUZZER)
  # Coverage feedback from the library itself, not only from the fuzz targets.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(MINGW)
  # Windows binaries must start under wine (and on a bare Windows) without the
  # compiler's runtime DLLs beside them.
  add_link_options(-static-libgcc -static-libstdc++ -Wl,-Bstatic,--whole-archive -lwinpthread -Wl,--no-whole-archive,-Bdynamic)
endif()

# Everything built from this tree runs from the build directory without installing.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

# qelcore_add_module(<target> <output name> <directory> <sources>...): a module
# file, named as the platform names them (lib<name>.so, <name>.dll), built
# into <directory>.
function(qelcore_add_module target name directory)
  add_library(${target} MODULE ${ARGN})
  target_link_libraries(${target} PRIVATE QELCore::qelcore qelcore_warnings)
  if(WIN32)
    set(prefix "")
    set(suffix ".dll")
  else()
    set(prefix "lib")
    set(suffix ".so")
  endif()
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name} PREFIX "${prefix}" SUFFIX "${suffix}"
    LIBRARY_OUTPUT_DIRECTORY ${directory} RUNTIME_OUTPUT_DIRECTORY ${directory})
endfunction()

# qelcore_add_modules(<target prefix> <directory> <sources>...): one module file
# per source, named after it (x.cpp: target <prefix>x, libx.so or x.dll), all in
# <directory>; QELCORE_ADDED_MODULES receives the targets.
function(qelcore_add_modules prefix directory)
  set(targets "")
  foreach(source ${ARGN})
    get_filename_component(name ${source} NAME_WE)
    qelcore_add_module(${prefix}${name} ${name} ${directory} ${source})
    list(APPEND targets ${prefix}${name})
  endforeach()
  set(QELCORE_ADDED_MODULES ${targets} PARENT_SCOPE)
endfunction()
