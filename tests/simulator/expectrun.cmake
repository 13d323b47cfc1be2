# Runs PROGRAM with ARGS, through EMULATOR if it is built for another processor, as on a machine without a
# display; fails unless it ends with CODE and says OUTPUT.
foreach(variable DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM QT_FONT_DPI)
  unset(ENV{${variable}})
endforeach()
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" ${ARGS} RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
message("${said}")
if(NOT code STREQUAL CODE)
  message(FATAL_ERROR "exit code ${code} instead of ${CODE}")
endif()
if(NOT said MATCHES "${OUTPUT}")
  message(FATAL_ERROR "nothing matches: ${OUTPUT}")
endif()
