# Configures, builds and runs the project in SOURCE, with nothing left from an earlier run.

file(REMOVE_RECURSE ${BINARY})
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Failed (${result}): ${ARGN}")
  endif()
endfunction()
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${BINARY}
  -DPANOREL_SOURCE=${PANOREL_SOURCE} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${BINARY})
run(${BINARY}/consumer)
