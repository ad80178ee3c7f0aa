# kinetarium_embed(TARGET FUNCTION FILE): compiles a file into a library. FUNCTION gives its bytes.
function(kinetarium_embed TARGET FUNCTION FILE)
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${FUNCTION}.cpp")
  add_custom_command(OUTPUT "${source}"
    COMMAND "${CMAKE_COMMAND}" -D "FILE=${FILE}" -D "OUTPUT=${source}" -D FUNCTION=${FUNCTION}
      -P "${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake"
    DEPENDS "${FILE}" "${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake"
    VERBATIM)
  target_sources(${TARGET} PRIVATE "${source}")
endfunction()

# The charts of a report.
set(KINETARIUM_CHART_LIBRARY /usr/share/javascript/chart.js/chart.min.js CACHE FILEPATH "Chart.js 3, in one file")
if(NOT EXISTS "${KINETARIUM_CHART_LIBRARY}")
  message(FATAL_ERROR "There is no '${KINETARIUM_CHART_LIBRARY}'. "
    "Run scripts/install-packages.sh, or set KINETARIUM_CHART_LIBRARY to the file of Chart.js 3.")
endif()
