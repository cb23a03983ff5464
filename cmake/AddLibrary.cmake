# ddb_add_library(<name> [STATIC] [UNITY] SOURCES <pattern>... HEADERS <pattern>... [RECURSE] [LINK <target>...])
#
# A library from the files that match, shared unless STATIC; patterns are relative to the project's root, RECURSE looks
# into the folders below too. UNITY compiles all sources as one unit, where headers cost more than the code. Includes are written from the root. Without a source it is an interface library, so that a
# room can be named before it is furnished. Shared libraries and their headers are installed and exported.
function(ddb_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "STATIC;UNITY;RECURSE" "" "SOURCES;HEADERS;LINK")
  set(glob GLOB)
  if(arg_RECURSE)
    set(glob GLOB_RECURSE)
  endif()
  list(TRANSFORM arg_SOURCES PREPEND ${PROJECT_SOURCE_DIR}/)
  list(TRANSFORM arg_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/)
  file(${glob} sources CONFIGURE_DEPENDS ${arg_SOURCES})
  file(${glob} headers CONFIGURE_DEPENDS ${arg_HEADERS})
  set(tables ${headers})
  list(FILTER headers INCLUDE REGEX "\\.h$")
  list(FILTER tables EXCLUDE REGEX "\\.h$")

  set(scope PUBLIC)
  set(kind SHARED)
  if(arg_STATIC)
    set(kind STATIC)
  endif()
  if(NOT sources)
    set(scope INTERFACE)
    set(kind INTERFACE)
  endif()

  add_library(${name} ${kind})
  add_library(DDB_GeometricAttributes::${name} ALIAS ${name})
  target_compile_features(${name} ${scope} cxx_std_20)
  target_link_libraries(${name} ${scope} ${arg_LINK})
  # The tables (.def) are a set of their own: they are included by headers and do not compile alone.
  target_sources(${name}
    PRIVATE ${sources}
    ${scope} FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${headers}
    ${scope} FILE_SET tables TYPE HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${tables})
  set_target_properties(${name} PROPERTIES INTERFACE_HEADER_SETS_TO_VERIFY HEADERS)

  if(arg_UNITY)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  endif()
  if(kind STREQUAL "SHARED")
    ddb_as_delivered(${name} exports.map)
  endif()
  if(NOT arg_STATIC)
    ddb_install_library(${name} library ${PROJECT_NAME} tables)
  endif()
endfunction()

# ddb_as_delivered(<name> <map>): the file name and the exports of a shared library that is installed (docs/versions.md).
function(ddb_as_delivered name map)
  set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  if(NOT GATTR_SANITIZE)  # whose own calls stand in the program, and whose libraries show everything
    set(exports ${PROJECT_SOURCE_DIR}/cmake/${map})
    target_link_options(${name} PRIVATE -Wl,--no-undefined -Wl,--version-script=${exports})
    set_target_properties(${name} PROPERTIES LINK_DEPENDS ${exports})
  endif()
endfunction()

# ddb_install_library(<name> <component> <export> [<set>]): with its headers, and a further set of files beside them.
function(ddb_install_library name component export)
  set(folder ${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME})
  set(sets FILE_SET HEADERS DESTINATION ${folder} COMPONENT ${component})
  foreach(set IN LISTS ARGN)
    list(APPEND sets FILE_SET ${set} DESTINATION ${folder} COMPONENT ${component})
  endforeach()
  install(TARGETS ${name} EXPORT ${export} LIBRARY COMPONENT ${component} NAMELINK_COMPONENT ${component} ${sets})
endfunction()
