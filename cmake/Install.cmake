# Headers, library, tool, sample configuration, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS VEXMELKConfiguration EXPORT VEXMELKConfigurationTargets)
if(MELK_TOOL)
    install(TARGETS melkcfg)
endif()

set(header_directory ${CMAKE_INSTALL_INCLUDEDIR}/VEXMELKConfiguration)
install(DIRECTORY include/ description/ DESTINATION ${header_directory} FILES_MATCHING PATTERN "*.h")
# The interfaces, without what only the parser itself includes.
file(GLOB interface_headers CONFIGURE_DEPENDS platform/*/*.h siblings/*/*.h)
list(FILTER interface_headers EXCLUDE REGEX "/CATXML(Parse|Entities|Encoding|DocumentWriter)\\.h$")
install(FILES ${interface_headers} DESTINATION ${header_directory})
install(DIRECTORY configuration/ DESTINATION ${CMAKE_INSTALL_DATADIR}/VEXMELKConfiguration/configuration)

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/VEXMELKConfiguration)
install(EXPORT VEXMELKConfigurationTargets NAMESPACE VEXMELKConfiguration:: DESTINATION ${package_directory})
configure_package_config_file(cmake/VEXMELKConfigurationConfig.cmake.in VEXMELKConfigurationConfig.cmake
    INSTALL_DESTINATION ${package_directory})
write_basic_package_version_file(VEXMELKConfigurationConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfigurationConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfigurationConfigVersion.cmake
        DESTINATION ${package_directory})

# Relative, so that the installed folder may be moved, or chosen when it is installed.
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/VEXMELKConfiguration.pc.in VEXMELKConfiguration.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfiguration.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
