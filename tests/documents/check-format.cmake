# Fails when a source file is not formatted as .clang-format says.

foreach(folder host panorel simulator tests examples)
  file(GLOB_RECURSE found ${ROOT}/${folder}/*.cpp ${ROOT}/${folder}/*.h)
  list(APPEND files ${found})
endforeach()
if(NOT files)
  message(FATAL_ERROR "No source files below ${ROOT}.")
endif()
execute_process(COMMAND ${CLANG_FORMAT} --dry-run -Werror ${files} RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "Not formatted; mend it with: clang-format -i FILE")
endif()
