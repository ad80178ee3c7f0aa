# The loader of Windows looks for the libraries of the import table beside the program first, where a user may have
# downloaded something else. So a program that is handed out has only kernel32 and msvcrt there, which Windows takes from
# its own memory. Each of the others is loaded by its first call, from the system's folder.
#
#   kinetarium_delay_load(TARGET)   links a program in this way

set(KINETARIUM_DELAYED_LIBRARIES
  advapi32 comctl32 comdlg32 gdi32 ole32 oleacc oleaut32 user32 uxtheme winmm ws2_32)

if(WIN32)
  set(delay_folder "${CMAKE_BINARY_DIR}/delay-load")
  file(MAKE_DIRECTORY "${delay_folder}")
  foreach(name IN LISTS KINETARIUM_DELAYED_LIBRARIES)
    add_custom_command(OUTPUT "${delay_folder}/lib${name}.a"
      COMMAND "${CMAKE_COMMAND}" "-DNAME=${name}" "-DFOLDER=${delay_folder}" "-DCOMPILER=${CMAKE_CXX_COMPILER}"
        "-DNM=${CMAKE_NM}" "-DDLLTOOL=${CMAKE_DLLTOOL}" -P "${CMAKE_CURRENT_LIST_DIR}/MakeDelayLibrary.cmake"
      DEPENDS "${CMAKE_CURRENT_LIST_DIR}/MakeDelayLibrary.cmake"
      COMMENT "Making the delay-load library of ${name}"
      VERBATIM)
    list(APPEND delay_libraries "${delay_folder}/lib${name}.a")
  endforeach()
  add_custom_target(kinetarium-delay-load DEPENDS ${delay_libraries})

  add_library(KinetariumDelayLoad OBJECT EXCLUDE_FROM_ALL
    "${CMAKE_SOURCE_DIR}/classes/windows/system/DelayedLibraries.cpp")
  target_link_libraries(KinetariumDelayLoad PRIVATE KinetariumOptions)
endif()

function(kinetarium_delay_load TARGET)
  if(WIN32)
    add_dependencies(${TARGET} kinetarium-delay-load)
    set_property(TARGET ${TARGET} APPEND PROPERTY LINK_DEPENDS ${delay_libraries})
    # The compiler itself names some of the libraries last: the folder replaces all of them.
    target_link_options(${TARGET} PRIVATE "-L${delay_folder}" -Wl,--undefined=__delayLoadHelper2)
    target_link_libraries(${TARGET} PRIVATE KinetariumDelayLoad)
  endif()
endfunction()
