# The flags that every target of this project shares.
add_library(KinetariumOptions INTERFACE)

# Off for compilers newer than those of Debian 12, which may warn of what these do not.
option(KINETARIUM_WARNINGS_AS_ERRORS "Let a warning end the build" ON)

target_include_directories(KinetariumOptions INTERFACE "${CMAKE_SOURCE_DIR}")

target_compile_options(KinetariumOptions INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wdouble-promotion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  $<$<BOOL:${KINETARIUM_WARNINGS_AS_ERRORS}>:-Werror>
  # A target with fused multiply-add would otherwise round once where another rounds twice, and the same seed would
  # no longer give the same world on every machine.
  -ffp-contract=off
  # Diagnostics name a source by its path in this folder, wherever that lies: two checkouts give the same program.
  "-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=")

# Numbers that leave an integer's range are undefined behaviour too, but not everywhere part of "undefined".
set(KINETARIUM_SANITIZER_OPTIONS
  -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
if(KINETARIUM_SANITIZE OR KINETARIUM_FUZZ)
  target_compile_options(KinetariumOptions INTERFACE ${KINETARIUM_SANITIZER_OPTIONS})
  target_link_options(KinetariumOptions INTERFACE ${KINETARIUM_SANITIZER_OPTIONS})
endif()

if(KINETARIUM_SANITIZE_THREADS)
  target_compile_options(KinetariumOptions INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(KinetariumOptions INTERFACE -fsanitize=thread)
endif()

# Several test programs and threads count into one file.
if(KINETARIUM_COVERAGE)
  target_compile_options(KinetariumOptions INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(KinetariumOptions INTERFACE --coverage)
endif()

if(KINETARIUM_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "KINETARIUM_FUZZ needs clang++: use the preset native-fuzz.")
  endif()
  # Warnings are settled with GCC: clang has others, and does not know all that some files switch off.
  target_compile_options(KinetariumOptions INTERFACE -fsanitize=fuzzer-no-link -Wno-error -Wno-unknown-warning-option)
endif()

if(WIN32)
  target_compile_definitions(KinetariumOptions INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
    _WIN32_WINNT=0x0A00 WINVER=0x0A00 NTDDI_VERSION=0x0A000004)
  # Spills of wide vector registers must not assume a stack alignment that the Windows ABI does not give.
  target_compile_options(KinetariumOptions INTERFACE -Wa,-muse-unaligned-vector-move)
  # A buffer that overflows ends the program before anything uses what it overwrote. The checks of the C library's
  # functions need an optimising build.
  target_compile_options(KinetariumOptions INTERFACE -fstack-protector-strong)
  target_link_options(KinetariumOptions INTERFACE -fstack-protector-strong)
  target_compile_definitions(KinetariumOptions INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
  # One self-contained program: nothing but the system's own libraries is imported. High-entropy ASLR and DEP are on;
  # without the time stamp of the link, two builds of one tree are the same file.
  target_link_options(KinetariumOptions INTERFACE
    -static -static-libgcc -static-libstdc++
    -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va -Wl,--no-insert-timestamp)
endif()

# kinetarium_library(NAME source...): a static library of this project.
function(kinetarium_library NAME)
  add_library(${NAME} STATIC ${ARGN})
  target_link_libraries(${NAME} PUBLIC KinetariumOptions)
endfunction()
