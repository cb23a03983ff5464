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
    set_target_properties(${name} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
    if(NOT GATTR_SANITIZE)  # whose own calls stand in the program
      target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
  endif()
  if(NOT arg_STATIC)
    set(folder ${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME})
    install(TARGETS ${name} EXPORT ${PROJECT_NAME} FILE_SET HEADERS DESTINATION ${folder} FILE_SET tables DESTINATION ${folder})
  endif()
endfunction()
