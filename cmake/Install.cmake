# Headers, library, tool, sample configuration, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS VEXMELKConfiguration VEXMELKInsight EXPORT VEXMELKConfigurationTargets)
if(MELK_TOOL)
    install(TARGETS melkcfg)
    if(TARGET tool_documents)
        install(FILES ${documents}/melkcfg.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
        install(FILES ${documents}/melkcfg DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
        install(FILES ${documents}/_melkcfg DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
        install(FILES ${documents}/melkcfg.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    endif()
endif()

set(header_directory ${CMAKE_INSTALL_INCLUDEDIR}/VEXMELKConfiguration)
# All headers of these folders, without those of folders in them: the parser is nobody else's.
foreach(folder include description host document insight)
    file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
    install(FILES ${headers} DESTINATION ${header_directory})
endforeach()
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
