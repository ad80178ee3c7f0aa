# Makes the delay-load import library of a system library from its ordinary one, which lists the functions:
#
#   cmake -DNAME=user32 -DFOLDER=... -DCOMPILER=... -DNM=... -DDLLTOOL=... -P MakeDelayLibrary.cmake
#
# The result, FOLDER/libNAME.a, replaces the ordinary library if the linker searches FOLDER first.

execute_process(COMMAND "${COMPILER}" "-print-file-name=lib${NAME}.a"
  OUTPUT_VARIABLE ordinary OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${NM}" "${ordinary}" OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
# Only what the library has itself ("I"), not what its own code takes from others ("U").
string(REGEX MATCHALL " I __imp_[^\n\r]+" imports "${symbols}")
list(TRANSFORM imports REPLACE "^ I __imp_" "")
list(REMOVE_DUPLICATES imports)
list(SORT imports)
if(NOT imports)
  message(FATAL_ERROR "${ordinary} lists no function")
endif()
list(JOIN imports "\n" functions)
file(WRITE "${FOLDER}/${NAME}.def" "EXPORTS\n${functions}\n")
# The tool names symbols after its output, so the output has no folder: the folder of the build leaves no trace.
execute_process(COMMAND "${DLLTOOL}" -m i386:x86-64 -d "${NAME}.def" -D "${NAME}.dll" -y "lib${NAME}.a"
  WORKING_DIRECTORY "${FOLDER}" COMMAND_ERROR_IS_FATAL ANY)
