# Configures, builds and runs the project in SOURCE, with nothing left from an earlier run.

file(REMOVE_RECURSE ${BINARY})
include(${CMAKE_CURRENT_LIST_DIR}/../support/Run.cmake)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE} -B ${BINARY}
  -DPANOREL_SOURCE=${PANOREL_SOURCE} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${BINARY})
run(${BINARY}/consumer)
