# Installs into an empty folder, moves that, and builds and runs an outside host with what is there.

file(REMOVE_RECURSE ${BINARY})
include(${CMAKE_CURRENT_LIST_DIR}/../support/Run.cmake)

run(${CMAKE_COMMAND} --install ${PROJECT_BINARY} --prefix ${BINARY}/first)
file(RENAME ${BINARY}/first ${BINARY}/installed)
set(prefix ${BINARY}/installed)

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/host -B ${BINARY}/host
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -DEXAMPLE=${EXAMPLE}
  -DCMAKE_CXX_STANDARD=17 -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${BINARY}/host)
run(${BINARY}/host/outside-host ${SOURCE}/host/page.html)

# The same without CMake.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBRARIES}/pkgconfig)
execute_process(COMMAND pkgconf --cflags --libs panorel OUTPUT_VARIABLE flags
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
foreach(source ${SOURCE}/host/main.cpp ${EXAMPLE}/CardDispenser.cpp ${EXAMPLE}/Robot.cpp
    ${EXAMPLE}/Services.cpp)
  cmake_path(GET source STEM name)
  run(${LAUNCHER} ${COMPILER} -std=c++17 -fPIC -I${EXAMPLE} -c ${source} -o ${BINARY}/${name}.o ${flags})
  list(APPEND objects ${BINARY}/${name}.o)
endforeach()
run(${COMPILER} ${objects} -o ${BINARY}/outside-host ${flags}
  -Wl,-rpath,${prefix}/${LIBRARIES})
run(${BINARY}/outside-host ${SOURCE}/host/page.html)

# The example that is there to be copied builds where it lands.
file(COPY ${EXAMPLE} DESTINATION ${BINARY})
cmake_path(GET EXAMPLE FILENAME copy)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${BINARY}/${copy} -B ${BINARY}/my-screen
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
  -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER})
run(${CMAKE_COMMAND} --build ${BINARY}/my-screen)

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
function(expect_field package field pattern)
  execute_process(COMMAND dpkg-deb -f ${file} ${field} OUTPUT_VARIABLE value
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT value MATCHES "${pattern}")
    message(FATAL_ERROR "${package} has ${field} \"${value}\", which is not ${pattern}.")
  endif()
endfunction()
foreach(package libpanorel1 libpanorel-dev panorel-simulator)
  file(GLOB file ${BINARY}/packages/${package}_*.deb)
  expect_field(${package} Package "^${package}$")
  expect_field(${package} Version "^${VERSION}")
  expect_field(${package} Architecture "^[a-z0-9]+$")
  expect_field(${package} Maintainer "<.+@.+>")
  expect_field(${package} Description "^[A-Z]")
  if(package STREQUAL "libpanorel1")
    expect_field(${package} Depends "libqt5webenginewidgets5")
    expect_field(${package} Recommends "libqt5multimedia5-plugins")
  else()
    expect_field(${package} Depends "libpanorel1 \\(= ${VERSION}")
  endif()
  run(dpkg-deb -x ${file} ${BINARY}/root)
endforeach()
run_simulator(${BINARY}/root/usr)
