# Fails when a source hands text in or out by an 8-bit function or type of the system: those turn a
# character that the code page does not have into one that looks like it. All conversion is done by
# src/platform/win32/system_text.cpp.
#   cmake -D SOURCE_DIR=<folder> -P no_8bit_input.cmake
cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/src/*.cpp" "${SOURCE_DIR}/src/*.hpp"
     "${SOURCE_DIR}/src/*.h")
list(LENGTH files count)
if(count EQUAL 0)
  message(FATAL_ERROR "No source file was found in ${SOURCE_DIR}/src: nothing was checked.")
endif()

# The system's 8-bit functions and types end in a capital A ("GetWindowTextA", "LOGFONTA"). What
# bears no ending at all is the wide one: UNICODE is defined for every source.
set(functions "(^|[^A-Za-z0-9_\"\\\\])[A-Za-z][A-Za-z0-9_]*[a-z0-9]A([^A-Za-z0-9_]|$)")
set(types "(^|[^A-Za-z0-9_\"])([A-Z][A-Z0-9_]*(DATA|FONT|METRIC|INFO|NAME|EX|TEXT|CONTRAST|CLASS|STRUCT|RESOURCE)A|LPC?STR|PC?STR)([^A-Za-z0-9_]|$)")
set(narrow "CF_(OEM)?TEXT|#[ \t]*undef[ \t]+UNICODE|WM_GETTEXT|getenv|_environ|__argv|ofn\\.h")
# Nobody else converts.
set(conversion "WideCharToMultiByte|MultiByteToWideChar|wcstombs|wcsrtombs|mbstowcs|mbsrtowcs")
set(converter "^src/platform/win32/system_text\\.cpp$")
set(found "")
foreach(file IN LISTS files)
  if(file MATCHES "^src/platform/posix/")
    continue() # no Windows
  endif()
  set(forbidden "${functions}|${types}|${narrow}")
  if(NOT file MATCHES "${converter}")
    string(APPEND forbidden "|${conversion}")
  endif()
  file(STRINGS "${SOURCE_DIR}/${file}" lines REGEX "${forbidden}")
  foreach(line IN LISTS lines)
    string(APPEND found "${file}: ${line}\n")
  endforeach()
endforeach()
if(found)
  message(FATAL_ERROR "Text goes to and from the system by system_text.hpp only:\n${found}")
endif()
message(STATUS "${count} files checked")
