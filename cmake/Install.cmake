# The CMake package and the pkg-config files. All find everything relative to themselves: the prefix may be moved. What is installed has
# three parts, as `cmake --install build/release --component library` takes them: library, session, program.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME})
configure_package_config_file(cmake/${PROJECT_NAME}Config.cmake.in ${PROJECT_NAME}Config.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_NAME}ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${PROJECT_NAME}Config.cmake ${CMAKE_CURRENT_BINARY_DIR}/${PROJECT_NAME}ConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT library)
install(EXPORT ${PROJECT_NAME} NAMESPACE ${PROJECT_NAME}:: FILE ${PROJECT_NAME}-library.cmake DESTINATION ${package_dir} COMPONENT library)

file(RELATIVE_PATH pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
function(install_pkg_config name component)
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()
install_pkg_config(${PROJECT_NAME} library)

if(GATTR_TOOLS)
  install(EXPORT gattr_session NAMESPACE ${PROJECT_NAME}:: FILE ${PROJECT_NAME}-session.cmake DESTINATION ${package_dir} COMPONENT session)
  install_pkg_config(gattr_session session)
endif()
