# The flags of every target of this project.
add_library(KinetariumOptions INTERFACE)

# Switch it off for compilers newer than those of Debian 12: they may have more warnings.
option(KINETARIUM_WARNINGS_AS_ERRORS "Let a warning end the build" ON)

target_include_directories(KinetariumOptions INTERFACE "${CMAKE_SOURCE_DIR}")

target_compile_options(KinetariumOptions INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wdouble-promotion
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  $<$<BOOL:${KINETARIUM_WARNINGS_AS_ERRORS}>:-Werror>
  # A fused multiply-add rounds once instead of twice: with it, the same seed would not give the same world on every
  # machine.
  -ffp-contract=off
  # Diagnostics name a source by its path relative to this folder: two checkouts give the same program.
  "-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=")

# GCC does not include float-cast-overflow in "undefined".
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

# Threads and several test programs update the same counters.
if(KINETARIUM_COVERAGE)
  target_compile_options(KinetariumOptions INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(KinetariumOptions INTERFACE --coverage)
endif()

if(KINETARIUM_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "KINETARIUM_FUZZ needs clang++: use the preset native-fuzz.")
  endif()
  # GCC's warnings are the errors: clang has others, and does not know all warnings that some files switch off.
  target_compile_options(KinetariumOptions INTERFACE -fsanitize=fuzzer-no-link -Wno-error -Wno-unknown-warning-option)
endif()

if(WIN32)
  target_compile_definitions(KinetariumOptions INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
    _WIN32_WINNT=0x0A00 WINVER=0x0A00 NTDDI_VERSION=0x0A000004)
  # Spills of wide vector registers must not assume a stack alignment that the Windows ABI does not give.
  target_compile_options(KinetariumOptions INTERFACE -Wa,-muse-unaligned-vector-move)
  # A buffer overflow ends the program before anything uses the overwritten memory. The checks of the C library's
  # functions need an optimising build.
  target_compile_options(KinetariumOptions INTERFACE -fstack-protector-strong)
  target_link_options(KinetariumOptions INTERFACE -fstack-protector-strong)
  target_compile_definitions(KinetariumOptions INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
  # A self-contained program: it imports only the system's libraries. High-entropy ASLR and DEP are on. Without the time
  # stamp of the link, two builds give the same file.
  target_link_options(KinetariumOptions INTERFACE
    -static -static-libgcc -static-libstdc++
    -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va -Wl,--no-insert-timestamp)
endif()

# kinetarium_library(NAME source...): a static library of this project.
function(kinetarium_library NAME)
  add_library(${NAME} STATIC ${ARGN})
  target_link_libraries(${NAME} PUBLIC KinetariumOptions)
endfunction()
