# cmake -D SOURCE=FOLDER -D HEADER=FILE -P WriteCommit.cmake
# Writes the commit of the sources as a header: its full hash, "-dirty" behind it if files differ from it, and "unknown"
# without git or if the sources are no repository of their own.
set(commit unknown)
find_program(git git)
if(git)
  # A repository around unpacked sources says nothing about them.
  execute_process(COMMAND "${git}" -C "${SOURCE}" rev-parse --show-toplevel
    OUTPUT_VARIABLE top OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed ERROR_QUIET)
  get_filename_component(source "${SOURCE}" REALPATH)
  if(NOT failed AND top STREQUAL source)
    execute_process(COMMAND "${git}" --no-optional-locks -C "${SOURCE}" describe --always --dirty --abbrev=40 --exclude "*"
      OUTPUT_VARIABLE described OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed ERROR_QUIET)
    if(NOT failed AND described MATCHES "^[0-9a-f]+(-dirty)?$")
      set(commit "${described}")
    endif()
  endif()
endif()
# Writes only a changed file.
file(CONFIGURE OUTPUT "${HEADER}" CONTENT "#define QUORVANE_COMMIT \"${commit}\"\n" @ONLY)
