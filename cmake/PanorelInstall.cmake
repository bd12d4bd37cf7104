# What other projects and packages find: libraries, headers, a CMake package, a pkg-config file, and
# the simulator. Components: library, development, simulator.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(panorel_includes ${CMAKE_INSTALL_INCLUDEDIR}/panorel-${PROJECT_VERSION_MAJOR})
set(panorel_package ${CMAKE_INSTALL_LIBDIR}/cmake/Panorel)

foreach(library host panorel)
  string(REGEX REPLACE "^host$" "panorel-host" target ${library})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${library}
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    INSTALL_RPATH $ORIGIN
  )
  target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${panorel_includes}>)
  install(TARGETS ${target} EXPORT PanorelTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development)

  # The public headers, each where it is included from.
  get_target_property(sources ${target} SOURCES)
  get_target_property(internal ${target} PANOREL_INTERNAL_HEADERS)
  list(FILTER sources INCLUDE REGEX "^[A-Za-z_/]+\\.h$")
  list(REMOVE_ITEM sources ${internal})
  foreach(header IN LISTS sources)
    get_filename_component(folder ${library}/${header} DIRECTORY)
    install(FILES ${PROJECT_SOURCE_DIR}/${library}/${header}
      DESTINATION ${panorel_includes}/${folder} COMPONENT development)
  endforeach()
endforeach()

install(EXPORT PanorelTargets NAMESPACE Panorel:: DESTINATION ${panorel_package}
  COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/PanorelConfig.cmake.in
  ${PROJECT_BINARY_DIR}/PanorelConfig.cmake INSTALL_DESTINATION ${panorel_package}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PanorelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PanorelConfig.cmake
  ${PROJECT_BINARY_DIR}/PanorelConfigVersion.cmake
  DESTINATION ${panorel_package} COMPONENT development)

# Relative, so that what is installed may be moved.
file(RELATIVE_PATH panorel_prefix
  /${CMAKE_INSTALL_LIBDIR}/pkgconfig /) # with a slash at its end
configure_file(${PROJECT_SOURCE_DIR}/cmake/panorel.pc.in ${PROJECT_BINARY_DIR}/panorel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/panorel.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(PANOREL_BUILD_SIMULATOR)
  # The robot core of the desk is nobody's to link but the simulator's.
  install(TARGETS panorel-simulator-core
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/panorel COMPONENT simulator)
  install(TARGETS panorel-simulator
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT simulator)
  file(RELATIVE_PATH panorel_libraries /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
  set_target_properties(panorel-simulator-core PROPERTIES INSTALL_RPATH $ORIGIN/..)
  set_target_properties(panorel-simulator PROPERTIES
    INSTALL_RPATH $ORIGIN/${panorel_libraries}:$ORIGIN/${panorel_libraries}/panorel)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/simulator/pages ${PROJECT_SOURCE_DIR}/simulator/scenarios
    DESTINATION ${CMAKE_INSTALL_DATADIR}/panorel COMPONENT simulator)
  if(PANOREL_BUILD_PAGES)
    install(DIRECTORY ${PANOREL_PAGES}/reception
      DESTINATION ${CMAKE_INSTALL_DATADIR}/panorel/pages COMPONENT simulator)
  endif()
endif()

# Debian packages: "cpack" in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Panorel developers <developers@panorel.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libpanorel${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS "libqt5multimedia5-plugins, gstreamer1.0-plugins-good")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "Joins a robot's touch-screen page to the robot core")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libpanorel-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION}), qtbase5-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers and package files of Panorel")
if(PANOREL_BUILD_SIMULATOR)
  list(APPEND CPACK_COMPONENTS_ALL simulator)
  set(CPACK_DEBIAN_SIMULATOR_PACKAGE_NAME panorel-simulator)
  set(CPACK_DEBIAN_SIMULATOR_PACKAGE_SECTION devel)
  set(CPACK_DEBIAN_SIMULATOR_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION}), libqt5sql5-sqlite")
  set(CPACK_COMPONENT_SIMULATOR_DESCRIPTION "The robot on a desk: shows a page without a robot")
endif()
include(CPack)
