# How every target of this project is compiled, and the three ways to declare one.

add_library(tarnwick_options INTERFACE)
target_include_directories(tarnwick_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(tarnwick_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wimplicit-fallthrough
  # g++'s library uses in stable_sort and its like what it calls deprecated itself, and clang tells it.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
  # The same bytes wherever the clone lies.
  "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")
if(WIN32)
  target_compile_definitions(tarnwick_options INTERFACE
    WINVER=0x0A00 _WIN32_WINNT=0x0A00 WIN32_LEAN_AND_MEAN NOMINMAX STRICT
    # A name of Win32 without "A" or "W" is the wide one.
    UNICODE)
  # No time of linking in the program: built twice, it has the same bytes.
  target_link_options(tarnwick_options INTERFACE -static -Wl,--no-insert-timestamp)
endif()
if(TARNWICK_SANITIZE)
  target_compile_options(tarnwick_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarnwick_options INTERFACE -fsanitize=address,undefined)
endif()
if(TARNWICK_FUZZ)
  # Counters for the fuzzer in the libraries, which have no main of their own.
  target_compile_options(tarnwick_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(TARNWICK_COVERAGE)
  target_compile_options(tarnwick_options INTERFACE --coverage -O0)
  target_link_options(tarnwick_options INTERFACE --coverage)
endif()

# What nearly every file of the programs includes is compiled once for all of them in the builds that
# `make test` makes. The others find a file that leaves out an include; and with optimisation for speed,
# g++ warns of bounds in precompiled library headers where it errs.
if(TARNWICK_PRECOMPILE)
  add_library(tarnwick_headers OBJECT "${CMAKE_CURRENT_LIST_DIR}/headers.cpp")
  target_link_libraries(tarnwick_headers PRIVATE tarnwick_options)
  target_precompile_headers(tarnwick_headers PRIVATE
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view>
    <utility> <vector>)
endif()

# tarnwick_library(name SOURCES a.cpp ... DEPENDS other ...): one floor of the house.
function(tarnwick_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tarnwick_options ${ARG_DEPENDS})
  if(TARNWICK_PRECOMPILE)
    target_precompile_headers(${name} REUSE_FROM tarnwick_headers)
  endif()
endfunction()

# GoogleTest: the installed library natively; its sources where none is installed for the target
# (cross-compiling).
if(NOT WIN32)
  find_package(GTest QUIET)
endif()
if(NOT TARGET GTest::gmock_main)
  find_path(GOOGLETEST_SOURCES NAMES googlemock/CMakeLists.txt
            PATHS /usr/src/googletest /usr/local/src/googletest NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(INSTALL_GTEST OFF)
  set(gtest_force_shared_crt ON)
  add_subdirectory("${GOOGLETEST_SOURCES}" "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  if(NOT TARGET GTest::gmock_main)
    add_library(GTest::gmock_main ALIAS gmock_main)
  endif()
endif()

# What nearly every test includes is compiled once, for all test programs.
add_library(tarnwick_test_headers OBJECT "${CMAKE_CURRENT_LIST_DIR}/test_headers.cpp")
target_link_libraries(tarnwick_test_headers PRIVATE tarnwick_options GTest::gmock_main)
target_precompile_headers(tarnwick_test_headers PRIVATE
  <gmock/gmock.h> <gtest/gtest.h> <functional> <map> <memory> <string> <string_view> <vector>)

# g++ takes what the precompiled library headers do for the tests' own code, and warns where it errs:
# it sees overlaps and bounds that are not there in "text" + std::string.
set(wrong_warnings $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow>)

# tarnwick_test(name SOURCES ... DEPENDS ...): one GoogleTest program, and one CTest entry: to start a
# program for every test would take longer than the tests. It tells only of what fails.
# TEXT tarnwick_system_text: in the code page of this machine, not in the one of most tests.
function(tarnwick_test name)
  cmake_parse_arguments(ARG "" "TEXT" "SOURCES;DEPENDS" ${ARGN})
  if(NOT ARG_TEXT)
    set(ARG_TEXT tarnwick_test_text)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE tarnwick_options ${ARG_DEPENDS} ${ARG_TEXT} GTest::gmock_main)
  target_precompile_headers(${name} REUSE_FROM tarnwick_test_headers)
  target_compile_options(${name} PRIVATE ${wrong_warnings})
  add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
endfunction()
