# Installs into an empty folder, moves that, and builds and runs an outside host with what is there.

file(REMOVE_RECURSE ${BINARY})
include(${CMAKE_CURRENT_LIST_DIR}/../support/Run.cmake)

run(${CMAKE_COMMAND} --install ${PROJECT_BINARY} --prefix ${BINARY}/first)
file(RENAME ${BINARY}/first ${BINARY}/installed)
set(prefix ${BINARY}/installed)

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/host -B ${BINARY}/host
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DSERVICES=${SERVICES}
  -DCMAKE_CXX_STANDARD=17 -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${BINARY}/host)
run(${BINARY}/host/outside-host ${SOURCE}/host/page.html)

# The same without CMake.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBRARIES}/pkgconfig)
execute_process(COMMAND pkgconf --cflags --libs panorel OUTPUT_VARIABLE flags
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${LAUNCHER} ${COMPILER} -std=c++17 -fPIC -c ${SOURCE}/host/main.cpp -o ${BINARY}/main.o ${flags})
run(${LAUNCHER} ${COMPILER} -std=c++17 -fPIC -c ${SERVICES} -o ${BINARY}/services.o ${flags})
run(${COMPILER} ${BINARY}/main.o ${BINARY}/services.o -o ${BINARY}/outside-host ${flags}
  -Wl,-rpath,${prefix}/${LIBRARIES})
run(${BINARY}/outside-host ${SOURCE}/host/page.html)

# The simulator finds its libraries, its page and its scenario where they were installed...
function(run_simulator prefix)
  set(picture ${BINARY}/simulator.png)
  file(REMOVE ${picture})
  run(${CMAKE_COMMAND} -E env HOME=${BINARY}/home
    ${prefix}/bin/panorel-simulator --screenshot ${picture})
  file(SIZE ${picture} size)
  if(size LESS 10000)
    message(FATAL_ERROR "${picture} shows nothing: ${size} bytes.")
  endif()
endfunction()
run_simulator(${prefix})

# ... and from Debian packages, in a root of their own.
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} -B ${BINARY}/packages
  WORKING_DIRECTORY ${PROJECT_BINARY} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
foreach(package libpanorel1 libpanorel-dev panorel-simulator)
  file(GLOB file ${BINARY}/packages/${package}_*.deb)
  run(dpkg-deb -x ${file} ${BINARY}/root)
endforeach()
run_simulator(${BINARY}/root/usr)
