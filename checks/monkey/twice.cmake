# Runs PROGRAM twice with the same seed, through EMULATOR if it is built for another processor; fails unless both
# runs break no rule and do the same.
foreach(run 1 2)
  execute_process(
    COMMAND ${EMULATOR} "${PROGRAM}" --actions ${ACTIONS} --seed 1 --log "monkey-${run}.log"
    RESULT_VARIABLE code OUTPUT_VARIABLE said_${run} ERROR_VARIABLE errors)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "exit code ${code}\n${errors}\n${said_${run}}")
  endif()
endforeach()
if(NOT said_1 STREQUAL said_2)
  message(FATAL_ERROR "not the same again; compare monkey-1.log and monkey-2.log")
endif()
