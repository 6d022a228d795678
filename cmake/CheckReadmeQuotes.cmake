# cmake -DREADME=<README.md> -DROOT=<source dir> -DDIR=<directory> -P CheckReadmeQuotes.cmake
# Every source file of DIR (*.h, *.cpp) must appear in the README whole, as
#   <!-- path/relative/to/root -->
#   ```cpp
#   <the file's content>
#   ```
file(READ ${README} readme)
file(GLOB FILES ${DIR}/*.h ${DIR}/*.cpp)
set(failed "")
foreach(file ${FILES})
  file(READ ${file} content)
  file(RELATIVE_PATH name ${ROOT} ${file})
  string(FIND "${readme}" "<!-- ${name} -->\n```cpp\n${content}```\n" at)
  if(at EQUAL -1)
    string(APPEND failed " ${name}")
  endif()
endforeach()
if(failed)
  message(FATAL_ERROR "README.md does not quote these files as they are:${failed}")
endif()
message(STATUS "README.md quotes every getting-started file as it is")
