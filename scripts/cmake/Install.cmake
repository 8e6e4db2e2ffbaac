# What `cmake --install` puts where: the program, the component and the adapters with their headers,
# and a CMake package "Lumarin" that finds what each of them needs.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(LUMARIN_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/lumarin)
set(LUMARIN_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/lumarin)
set(LUMARIN_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Lumarin)

# The headers lie as in the sources, so that an include reads the same on both sides of the installation.
function(lumarin_include_directory target folder)
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${folder}> $<INSTALL_INTERFACE:${LUMARIN_INCLUDE_DIR}>)
endfunction()

# Installs the library lumarin_platform_<name> as Lumarin::<name>, a component of the package. HEADERS are those
# that a host includes, and what they include in turn; OBJECTS are targets whose object files belong to it.
# FOLDER is where it stands below platform/, where that is not its name. Dependencies.cmake of the folder finds the
# libraries behind it, here and in the package.
function(lumarin_install_platform name)
  cmake_parse_arguments(ARG "" "FOLDER" "HEADERS;OBJECTS" ${ARGN})
  set(target lumarin_platform_${name})
  if(NOT ARG_FOLDER)
    set(ARG_FOLDER ${name})
  endif()
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  install(TARGETS ${target} ${ARG_OBJECTS} EXPORT lumarin_${name}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR}/lumarin)
  install(FILES ${ARG_HEADERS} DESTINATION ${LUMARIN_INCLUDE_DIR}/platform/${ARG_FOLDER})
  install(FILES Dependencies.cmake DESTINATION ${LUMARIN_PACKAGE_DIR} RENAME ${name}-dependencies.cmake)
  install(EXPORT lumarin_${name} NAMESPACE Lumarin:: FILE ${name}-targets.cmake DESTINATION ${LUMARIN_PACKAGE_DIR})
endfunction()

# The package file itself, and what describes the whole; called once, at the root.
function(lumarin_install_package)
  install(EXPORT lumarin_component NAMESPACE Lumarin:: FILE component-targets.cmake
          DESTINATION ${LUMARIN_PACKAGE_DIR})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/scripts/cmake/LumarinConfig.cmake.in
                                ${PROJECT_BINARY_DIR}/LumarinConfig.cmake INSTALL_DESTINATION ${LUMARIN_PACKAGE_DIR})
  # Before 1.0 a minor version may change what a host has to give.
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/LumarinConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/LumarinConfig.cmake ${PROJECT_BINARY_DIR}/LumarinConfigVersion.cmake
          DESTINATION ${LUMARIN_PACKAGE_DIR})
  install(FILES README.md CHANGELOG.md DESTINATION ${LUMARIN_DOC_DIR})
  install(DIRECTORY docs/ DESTINATION ${LUMARIN_DOC_DIR}/docs)
endfunction()
