# run(COMMAND [ARGUMENT...]): for scripts; ends the script when the command fails.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Failed (${result}): ${ARGN}")
  endif()
endfunction()
