# The job of this file is to install the folders as a CMake package. Folders that need nothing but each other are there
# for every find_package(Plotkit); each one that needs another library (qt) is an optional component of its name, so that
# a program without Qt looks for none.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(PLOTKIT_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Plotkit)
# An interface may change with every minor version as long as the major one is 0.
set(PLOTKIT_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})

add_library(plotkit_all INTERFACE)
set_target_properties(plotkit_all PROPERTIES EXPORT_NAME Plotkit)
install(TARGETS plotkit_all EXPORT Plotkit)

# find_package calls for targets like Qt6::Gui, and for the components that stand for other folders.
function(plotkit_needs result)
  set(needs "")
  set(qt_parts "")
  get_property(components GLOBAL PROPERTY PLOTKIT_COMPONENTS)
  foreach(used IN LISTS ARGN)
    if(used MATCHES "^Qt6::(.+)")
      string(APPEND qt_parts " ${CMAKE_MATCH_1}")
    elseif(used MATCHES "^plotkit_(.+)")
      if(CMAKE_MATCH_1 IN_LIST components)
        string(APPEND needs "plotkit_load(${CMAKE_MATCH_1})\n")
      endif()
    elseif(used MATCHES "^(.+)::")
      string(APPEND needs "plotkit_need(${CMAKE_MATCH_1})\n")
    else()
      string(APPEND needs "# ${used} is part of the system.\n")
    endif()
  endforeach()
  if(qt_parts)
    string(APPEND needs "plotkit_need(Qt6 6.4 COMPONENTS${qt_parts})\n")
  endif()
  set(${result} "${needs}" PARENT_SCOPE)
endfunction()

function(plotkit_install_folder name)
  set(target plotkit_${name})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} VERSION ${PROJECT_VERSION} SOVERSION ${PLOTKIT_SOVERSION}
    INSTALL_RPATH "$ORIGIN")
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/plotkit>)
  plotkit_needs(needs ${ARGN})
  set(export Plotkit)
  set(library library)
  if(needs)
    set_property(GLOBAL APPEND PROPERTY PLOTKIT_COMPONENTS ${name})
    set(export Plotkit-${name})
    set(library library-${name})
    file(WRITE ${CMAKE_BINARY_DIR}/package/PlotkitNeeds-${name}.cmake "${needs}")
    install(FILES ${CMAKE_BINARY_DIR}/package/PlotkitNeeds-${name}.cmake DESTINATION ${PLOTKIT_PACKAGE_DIR}
      COMPONENT development)
    install(EXPORT ${export} NAMESPACE Plotkit:: DESTINATION ${PLOTKIT_PACKAGE_DIR} COMPONENT development)
  else()
    target_link_libraries(plotkit_all INTERFACE ${target})
  endif()
  install(TARGETS ${target} EXPORT ${export}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${library} NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${name}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/plotkit/${name}
    COMPONENT development FILES_MATCHING PATTERN "*.h")
endfunction()

# To be called behind the last folder.
function(plotkit_install_package)
  get_property(components GLOBAL PROPERTY PLOTKIT_COMPONENTS)
  list(JOIN components ", " PLOTKIT_COMPONENTS)
  if(NOT components)
    set(PLOTKIT_COMPONENTS none)
  endif()
  install(EXPORT Plotkit FILE PlotkitTargets.cmake NAMESPACE Plotkit:: DESTINATION ${PLOTKIT_PACKAGE_DIR}
    COMPONENT development)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/PlotkitConfig.cmake.in
    ${CMAKE_BINARY_DIR}/package/PlotkitConfig.cmake INSTALL_DESTINATION ${PLOTKIT_PACKAGE_DIR})
  write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/PlotkitConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${CMAKE_BINARY_DIR}/package/PlotkitConfig.cmake ${CMAKE_BINARY_DIR}/package/PlotkitConfigVersion.cmake
    DESTINATION ${PLOTKIT_PACKAGE_DIR} COMPONENT development)
endfunction()
