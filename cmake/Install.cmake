# What is installed, in two components: Runtime (the shared library) and Development (headers, static libraries, tool,
# sample configuration, a CMake package and a pkg-config file). cmake/Package.cmake makes packages of them.
include(CMakePackageConfigHelpers)

install(TARGETS VEXMELKConfiguration VEXMELKInsight EXPORT VEXMELKConfigurationTargets
    RUNTIME COMPONENT Runtime
    LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE COMPONENT Development)
if(MELK_TOOL)
    # Found wherever the installed folder is moved to.
    file(RELATIVE_PATH libraries_from_tool /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
    set_target_properties(melkcfg PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_tool}")
    install(TARGETS melkcfg COMPONENT Development)
    if(TARGET tool_documents)
        install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Development)
        install(FILES ${documents}/melkcfg DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
            COMPONENT Development)
        install(FILES ${documents}/_melkcfg DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT Development)
        install(FILES ${documents}/melkcfg.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
            COMPONENT Development)
    endif()
endif()

set(header_directory ${CMAKE_INSTALL_INCLUDEDIR}/VEXMELKConfiguration)
# All headers of these folders, without those of folders in them: the parser is nobody else's.
foreach(folder include description host document insight)
    file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
    install(FILES ${headers} DESTINATION ${header_directory} COMPONENT Development)
endforeach()
install(DIRECTORY configuration/ DESTINATION ${CMAKE_INSTALL_DATADIR}/VEXMELKConfiguration/configuration
    COMPONENT Development)

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/VEXMELKConfiguration)
install(EXPORT VEXMELKConfigurationTargets NAMESPACE VEXMELKConfiguration:: DESTINATION ${package_directory}
    COMPONENT Development)
configure_package_config_file(cmake/VEXMELKConfigurationConfig.cmake.in VEXMELKConfigurationConfig.cmake
    INSTALL_DESTINATION ${package_directory})
write_basic_package_version_file(VEXMELKConfigurationConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfigurationConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfigurationConfigVersion.cmake
              cmake/FindUtf8proc.cmake
        DESTINATION ${package_directory} COMPONENT Development)

# Relative, so that the installed folder may be moved, or chosen when it is installed.
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
if(NOT BUILD_SHARED_LIBS)
    set(pkgconfig_requires "expat libutf8proc")
    set(pkgconfig_definition " -DVEXMELKConfiguration_STATIC")
endif()
configure_file(cmake/VEXMELKConfiguration.pc.in VEXMELKConfiguration.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VEXMELKConfiguration.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT Development)

include(cmake/Package.cmake)
