# Options and the compiler settings that all targets of this project share.

set(PANOREL_ROBOT_HOME "/home/karvel" CACHE STRING "Home folder of the robot's user")
string(REGEX REPLACE "/+$" "" panorel_robot_home "${PANOREL_ROBOT_HOME}")
if(NOT IS_ABSOLUTE "${PANOREL_ROBOT_HOME}")
  message(FATAL_ERROR
    "PANOREL_ROBOT_HOME is \"${PANOREL_ROBOT_HOME}\": give the home folder as an absolute path.")
endif()
set(PANOREL_HOST_TARGET "" CACHE STRING "Existing target to use as Panorel::host")
option(PANOREL_BUILD_SIMULATOR "Build the robot on a desk" ${PANOREL_TOP_LEVEL})
option(PANOREL_BUILD_PAGES "Build the pages with npm" ${PANOREL_BUILD_SIMULATOR})
option(PANOREL_BUILD_EXAMPLES "Build the numbered examples" ${PANOREL_TOP_LEVEL})
option(PANOREL_BUILD_TESTS "Build the tests" ${PANOREL_TOP_LEVEL})
option(PANOREL_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(PANOREL_BUILD_FUZZERS "Build the fuzz targets with libFuzzer" OFF)
if(PANOREL_TOP_LEVEL AND NOT PANOREL_HOST_TARGET)
  option(PANOREL_INSTALL "Install libraries, headers and the simulator" ON)
else()
  option(PANOREL_INSTALL "Install libraries, headers and the simulator" OFF)
endif()
option(PANOREL_WERROR "Treat warnings as errors" OFF)
set(PANOREL_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")
option(PANOREL_COVERAGE "Count which lines of the two libraries run" OFF)

if(PANOREL_BUILD_TESTS
   AND NOT (PANOREL_BUILD_SIMULATOR AND PANOREL_BUILD_EXAMPLES AND PANOREL_BUILD_PAGES))
  message(FATAL_ERROR "The tests need the simulator, the examples and the pages: set "
    "PANOREL_BUILD_SIMULATOR, PANOREL_BUILD_EXAMPLES and PANOREL_BUILD_PAGES to ON, or "
    "PANOREL_BUILD_TESTS to OFF.")
endif()
if(PANOREL_BUILD_EXAMPLES AND NOT PANOREL_BUILD_SIMULATOR)
  message(FATAL_ERROR "The examples need the simulator's robot core: set PANOREL_BUILD_SIMULATOR "
    "to ON, or PANOREL_BUILD_EXAMPLES to OFF.")
endif()

if(PANOREL_BUILD_FUZZERS AND NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang"
                                  AND PANOREL_SANITIZE MATCHES "fuzzer-no-link"))
  message(FATAL_ERROR "libFuzzer comes with clang and needs its marks in the library: set "
    "CMAKE_CXX_COMPILER to clang++ and PANOREL_SANITIZE to fuzzer-no-link,address,undefined, as the "
    "preset fuzz does, or PANOREL_BUILD_FUZZERS to OFF.")
endif()

if(PANOREL_INSTALL AND PANOREL_HOST_TARGET)
  message(FATAL_ERROR "Set PANOREL_INSTALL to OFF: a platform with headers of its own "
    "(PANOREL_HOST_TARGET) installs the library with them.")
endif()

# Link this privately to every target of the project; it never reaches a user's target.
add_library(panorel-build-options INTERFACE)
target_compile_features(panorel-build-options INTERFACE cxx_std_17)
target_compile_definitions(panorel-build-options INTERFACE
  QT_NO_KEYWORDS
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING
  QT_DEPRECATED_WARNINGS
  QT_DISABLE_DEPRECATED_BEFORE=0x050F00
  QT_MESSAGELOGCONTEXT
)
target_compile_options(panorel-build-options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Optimised, GCC 12 sees uninitialised shared pointers in every initialiser list of them.
  target_compile_options(panorel-build-options INTERFACE -Wno-maybe-uninitialized)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # The widget's customEvent() is not QObject's, and is meant to be called so; Qt's logging macros are
  # called without their optional argument.
  target_compile_options(panorel-build-options INTERFACE
    -Wno-overloaded-virtual -Wno-gnu-zero-variadic-macro-arguments)
endif()
if(PANOREL_WERROR)
  target_compile_options(panorel-build-options INTERFACE -Werror)
endif()
if(PANOREL_SANITIZE)
  # Every violation ends the program, so that none passes unseen in a green test.
  target_compile_options(panorel-build-options INTERFACE
    -fsanitize=${PANOREL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(panorel-build-options INTERFACE -fsanitize=${PANOREL_SANITIZE})
endif()

# For the two libraries alone: what tests and simulator execute of themselves says nothing. Without the
# compiler's ways out of expressions in which memory runs out: they are most of the branches otherwise.
function(panorel_count_coverage target)
  if(PANOREL_COVERAGE)
    target_compile_options(${target} PRIVATE
      --coverage -fprofile-update=atomic -fno-exceptions)
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(PANOREL_TOP_LEVEL)
  find_program(PANOREL_CCACHE ccache)
  mark_as_advanced(PANOREL_CCACHE)
  if(PANOREL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${PANOREL_CCACHE})
  endif()
  # A hundred test programs link several times as fast; what a robot runs keeps the usual linker.
  find_program(PANOREL_MOLD mold)
  mark_as_advanced(PANOREL_MOLD)
  if(PANOREL_MOLD AND PANOREL_BUILD_TESTS)
    add_link_options(-fuse-ld=mold)
  endif()
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  # A change inside a shared library does not link its users anew.
  set(CMAKE_LINK_DEPENDS_NO_SHARED ON)
endif()
