# Header-only libraries have an include folder of their own, so that the cross build never sees /usr/include.
# scripts/fetch-dependencies.sh fills it.
set(KINETARIUM_DEPENDENCIES "${CMAKE_SOURCE_DIR}/build/deps/include" CACHE PATH
  "Folder with the headers of fmt (version 11), Boost, CLI11, JSON for Modern C++ and stb")

set(fmt_header "${KINETARIUM_DEPENDENCIES}/fmt/base.h")
if(NOT EXISTS "${fmt_header}")
  message(FATAL_ERROR "The headers of {fmt} 11 are not in '${KINETARIUM_DEPENDENCIES}'. "
    "Run scripts/fetch-dependencies.sh, or set KINETARIUM_DEPENDENCIES to a folder that holds fmt/, boost/, CLI/, nlohmann/ and stb/.")
endif()
file(STRINGS "${fmt_header}" fmt_version_line REGEX "^#define FMT_VERSION [0-9]+")
string(REGEX MATCH "[0-9]+" fmt_version "${fmt_version_line}")
if(fmt_version LESS 110000 OR NOT fmt_version LESS 120000)
  message(FATAL_ERROR "Kinetarium needs {fmt} version 11; ${fmt_header} says ${fmt_version}.")
endif()

add_library(KinetariumHeaders INTERFACE)
target_include_directories(KinetariumHeaders SYSTEM INTERFACE "${KINETARIUM_DEPENDENCIES}")
target_compile_definitions(KinetariumHeaders INTERFACE FMT_HEADER_ONLY=1)
# The same for them: a header is named as it is included.
target_compile_options(KinetariumHeaders INTERFACE "-fmacro-prefix-map=${KINETARIUM_DEPENDENCIES}/=")
target_link_libraries(KinetariumOptions INTERFACE KinetariumHeaders)

# A library for pictures, which each of the two systems has compiled. The Windows program needs no file beside itself.
if(WIN32)
  set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()
find_package(ZLIB REQUIRED)
