# GoogleTest is compiled for each build from the distribution's sources, with the build's own flags.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK ON CACHE BOOL "" FORCE)
set(KINETARIUM_GOOGLETEST /usr/src/googletest CACHE PATH "Folder with the sources of GoogleTest")
if(NOT EXISTS "${KINETARIUM_GOOGLETEST}/CMakeLists.txt")
  message(FATAL_ERROR "The sources of GoogleTest are not in '${KINETARIUM_GOOGLETEST}'. "
    "Run scripts/install-packages.sh, or set KINETARIUM_GOOGLETEST to a folder that holds them.")
endif()
add_subdirectory("${KINETARIUM_GOOGLETEST}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL)
include(GoogleTest)
# Optimising the framework takes as long as compiling ten tests and makes no test quicker.
foreach(target gtest gmock)
  target_compile_options(${target} PRIVATE -O1)
endforeach()

# kinetarium_test_main(NAME header...): the main function of test programs, with headers that most of their sources
# include. Where only speed is different (Release), these are precompiled: reading them is half of what compiling a test
# takes. A library of its own has them, so that no test program waits for another one.
function(kinetarium_test_main NAME)
  kinetarium_library(${NAME} "${KINETARIUM_GOOGLETEST}/googletest/src/gtest_main.cc")
  target_link_libraries(${NAME} PUBLIC GTest::gmock)
  set_target_properties(${NAME} PROPERTIES EXCLUDE_FROM_ALL ON)
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_precompile_headers(${NAME} PRIVATE ${ARGN})
    # GCC warns of its guesses about copies inside of precompiled headers, though not of plain system headers.
    target_compile_options(${NAME} PUBLIC -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
  endif()
endfunction()
kinetarium_test_main(TestMain <gtest/gtest.h>)
if(WIN32)
  kinetarium_test_main(DesktopTestMain <windows.h> <gtest/gtest.h> <chrono> <filesystem> <functional> <thread>)
endif()

# One CTest can run native and Windows tests: each name begins with the world, and CTest counts each label.
if(WIN32)
  set(KINETARIUM_WORLD windows)
else()
  set(KINETARIUM_WORLD native)
endif()

# kinetarium_test(NAME [DESKTOP name] [SHOWN_WORLD] [AFTER fixture] [TIMEOUT seconds] SOURCES source... LIBRARIES library...)
# A test program of one folder. Programs with a DESKTOP open real windows: they carry the manifest and the pictures of
# Kinetarium itself. Tests of one desktop share its keyboard focus, so they run one at a time. There are two desktops,
# "first" and "second", and the two take about as long as each other: test.sh runs them side by side. In a session with
# only one desktop scripts/wine-emulator.sh runs the tests of both one at a time.
# AFTER: a fixture of CTest that sets up what the tests read.
# SHOWN_WORLD: the tests look at the world on the screen, so they run without Direct2D where Wine does not show it.
function(kinetarium_test NAME)
  cmake_parse_arguments(PARSE_ARGV 1 TEST "SHOWN_WORLD" "AFTER;DESKTOP;TIMEOUT" "SOURCES;LIBRARIES")
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 60)
  endif()
  add_executable(${NAME} ${TEST_SOURCES})
  # Not in the folder of the programs: a test of the application leaves a settings file beside itself.
  set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests-bin")
  set(main TestMain)
  if(TEST_DESKTOP)
    set(main DesktopTestMain)
  endif()
  target_link_libraries(${NAME} PRIVATE ${TEST_LIBRARIES} KinetariumOptions ${main})
  if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_precompile_headers(${NAME} REUSE_FROM ${main})
  endif()
  set(properties TIMEOUT ${TEST_TIMEOUT} LABELS ${KINETARIUM_WORLD})
  if(TEST_DESKTOP)
    # Two desktops are the longest queues: CTest begins with the highest cost, as long as it has measured none.
    list(APPEND properties COST 100
      RESOURCE_LOCK "desktop ${TEST_DESKTOP}" ENVIRONMENT_MODIFICATION "KINETARIUM_DESKTOP=set:${TEST_DESKTOP}")
    kinetarium_resources(${NAME})
  endif()
  if(TEST_AFTER)
    list(APPEND properties FIXTURES_REQUIRED ${TEST_AFTER})
  endif()
  if(TEST_SHOWN_WORLD)
    list(APPEND properties ENVIRONMENT KINETARIUM_SHOWN_WORLD=1)
  endif()
  gtest_discover_tests(${NAME} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    TEST_PREFIX "${KINETARIUM_WORLD}.${NAME}." PROPERTIES ${properties})
endfunction()
