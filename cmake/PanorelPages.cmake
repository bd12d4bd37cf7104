# What npm builds: the client as a plain script, and the reception page that the simulator shows.
# PANOREL_PAGES is the folder they are in.

find_program(PANOREL_NPM npm)
if(NOT PANOREL_NPM)
  message(FATAL_ERROR "npm, which builds the pages, is not installed (Debian packages: nodejs, npm): "
    "install it, or set PANOREL_BUILD_PAGES to OFF; the simulator then shows its plain page.")
endif()

set(PANOREL_PAGES ${PROJECT_BINARY_DIR}/pages)
# Modules of npm and what is built lie in the same folders, so they are told apart by depth and name.
file(GLOB_RECURSE panorel_page_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/client/src/*
  ${PROJECT_SOURCE_DIR}/reception/src/*
  ${PROJECT_SOURCE_DIR}/reception/public/*)
file(GLOB panorel_page_settings CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/client/*.json ${PROJECT_SOURCE_DIR}/client/*.mjs
  ${PROJECT_SOURCE_DIR}/reception/*.json ${PROJECT_SOURCE_DIR}/reception/*.ts
  ${PROJECT_SOURCE_DIR}/reception/*.html)
add_custom_command(OUTPUT ${PANOREL_PAGES}/built
  COMMAND bash ${PROJECT_SOURCE_DIR}/scripts/build-pages.sh ${PANOREL_PAGES}
  COMMAND ${CMAKE_COMMAND} -E touch ${PANOREL_PAGES}/built
  DEPENDS ${panorel_page_sources} ${panorel_page_settings}
    ${PROJECT_SOURCE_DIR}/scripts/build-pages.sh
  COMMENT "Building the pages"
  VERBATIM)
add_custom_target(panorel-pages ALL DEPENDS ${PANOREL_PAGES}/built)
