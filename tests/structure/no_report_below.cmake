# Fails when a file outside src/report and src/app/runner uses the floor of the reports, which lies above
# the runner.
#   cmake -D SOURCE_DIR=<folder> -P no_report_below.cmake
cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.hpp")
list(FILTER files EXCLUDE REGEX "^src/(report|app/runner)/")
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "No source file was found in ${SOURCE_DIR}/src: nothing was checked.")
endif()

set(found "")
foreach(file IN LISTS files)
  file(STRINGS "${SOURCE_DIR}/${file}" lines REGEX "#[ \t]*include[ \t]*\"report/")
  foreach(line IN LISTS lines)
    string(APPEND found "${file}: ${line}\n")
  endforeach()
endforeach()
if(found)
  message(FATAL_ERROR "src/report lies above these, and is used by src/app/runner only:\n${found}")
endif()
message(STATUS "${count} files checked")
