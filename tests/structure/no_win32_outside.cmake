# Fails when a file outside src/platform/win32, src/ui/win32 and src/app/window uses Win32.
#   cmake -D SOURCE_DIR=<folder> -P no_win32_outside.cmake
cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.hpp"
     "${SOURCE_DIR}/src/*.h")
list(FILTER files EXCLUDE REGEX "^src/(platform/win32|ui/win32|app/window)/")
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "No source file was found in ${SOURCE_DIR}/src: nothing was checked.")
endif()

set(headers "windows|winuser|windowsx|commdlg|commctrl|shellapi|shlobj|shlwapi|winreg|winbase|cderr")
set(found "")
foreach(file IN LISTS files)
  file(STRINGS "${SOURCE_DIR}/${file}" lines
       REGEX "#[ \t]*include[ \t]*<(${headers})\\.h>|_WIN32|_WIN64|platform/win32/|ui/win32/")
  foreach(line IN LISTS lines)
    string(APPEND found "${file}: ${line}\n")
  endforeach()
endforeach()
if(found)
  message(FATAL_ERROR "Win32 belongs to src/platform/win32, src/ui/win32 and src/app/window only:\n${found}")
endif()
message(STATUS "${count} files checked")
