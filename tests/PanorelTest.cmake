# panorel_add_test(NAME tst_x SOURCES tst_x.cpp [LABEL unit|bridge|sound|page|tool] [THREADS]
#   [LIBRARIES ...]), with THREADS for what runs on several threads: preset tsan builds only these;
# and the environment in which tests run: no display, nothing written outside the build folder.

set(PANOREL_TEST_HOME ${PROJECT_BINARY_DIR}/test-home)
set(PANOREL_TEST_RUNTIME ${PROJECT_BINARY_DIR}/test-runtime)
set(PANOREL_TEST_MESSAGES ${PROJECT_BINARY_DIR}/test-messages) # what the messages of each program used
file(MAKE_DIRECTORY ${PANOREL_TEST_HOME} ${PANOREL_TEST_RUNTIME} ${PANOREL_TEST_MESSAGES})
execute_process(COMMAND chmod 0700 ${PANOREL_TEST_RUNTIME})

set(PANOREL_TEST_ENVIRONMENT
  HOME=${PANOREL_TEST_HOME}
  XDG_RUNTIME_DIR=${PANOREL_TEST_RUNTIME}
  XDG_CACHE_HOME=${PANOREL_TEST_HOME}/cache
  XDG_CONFIG_HOME=${PANOREL_TEST_HOME}/config
  XDG_DATA_HOME=${PANOREL_TEST_HOME}/data
  LC_ALL=C.UTF-8
  QT_LOGGING_RULES=
  QT_QPA_PLATFORM=offscreen
  QT_QUICK_BACKEND=software
  QTWEBENGINE_CHROMIUM_FLAGS=--disable-gpu
)
execute_process(COMMAND id -u OUTPUT_VARIABLE panorel_user OUTPUT_STRIP_TRAILING_WHITESPACE)
if(panorel_user STREQUAL "0")
  # The web engine's sandbox refuses to run as root.
  list(APPEND PANOREL_TEST_ENVIRONMENT QTWEBENGINE_DISABLE_SANDBOX=1)
endif()
if(PANOREL_SANITIZE)
  list(APPEND PANOREL_TEST_ENVIRONMENT
    UBSAN_OPTIONS=print_stacktrace=1
    LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/lsan.supp:print_suppressions=0
    TSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/tsan.supp:halt_on_error=1
  )
endif()

function(panorel_test_properties name label)
  set_tests_properties(${name} PROPERTIES
    LABELS ${label}
    TIMEOUT 300
    ENVIRONMENT "${PANOREL_TEST_ENVIRONMENT}"
  )
  if(PANOREL_SANITIZE)
    # The web engine leaks by design when a process ends; what this library leaks shows in the unit
    # and bridge tests. Qt has no frame pointers, so whole stacks are needed to tell its leaks apart.
    set(asan detect_leaks=0)
    if(label MATCHES "^(unit|bridge)$")
      set(asan fast_unwind_on_malloc=0)
    elseif(label STREQUAL "fuzz")
      set(asan detect_leaks=1) # without a window nothing of Qt's shows, and whole stacks take time
    endif()
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT ASAN_OPTIONS=${asan})
  endif()
endfunction()

add_custom_target(panorel-thread-tests)

function(panorel_add_test)
  cmake_parse_arguments(PARSE_ARGV 0 arg "THREADS" "NAME;LABEL" "SOURCES;LIBRARIES")
  if(NOT arg_LABEL)
    set(arg_LABEL unit)
  endif()
  add_executable(${arg_NAME} ${arg_SOURCES})
  set_target_properties(${arg_NAME} PROPERTIES
    AUTOMOC ON
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests/bin
  )
  target_link_libraries(${arg_NAME} PRIVATE
    panorel-test-support ${arg_LIBRARIES} Qt5::Test panorel-build-options)
  add_test(NAME ${arg_NAME} COMMAND ${arg_NAME})
  panorel_test_properties(${arg_NAME} ${arg_LABEL})
  set_property(TEST ${arg_NAME} APPEND PROPERTY ENVIRONMENT
    PANOREL_TEST_MESSAGES=${PANOREL_TEST_MESSAGES}/${arg_NAME}.txt)
  set_property(GLOBAL APPEND PROPERTY PANOREL_TEST_PROGRAMS ${arg_NAME})
  if(arg_THREADS)
    set_property(TEST ${arg_NAME} APPEND PROPERTY LABELS threads)
    add_dependencies(panorel-thread-tests ${arg_NAME})
    if(PANOREL_SANITIZE STREQUAL "thread")
      target_sources(${arg_NAME} PRIVATE
        ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/support/VisibleThreadPool.cpp)
    endif()
  endif()
endfunction()
