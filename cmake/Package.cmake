# Packages: a pair of Debian packages (the library; development and tool), and one archive for everything.
# MELK_DEBIAN chooses the layout of the files that only packages have. scripts/release.sh builds and tries them.
set(MELK_MAINTAINER "VEXMELKConfiguration maintainers <maintainers@vexmelkconfiguration.invalid>"
    CACHE STRING "Who answers for the packages")

file(STRINGS ${PROJECT_SOURCE_DIR}/CHANGELOG.md release_heading REGEX "^## ${PROJECT_VERSION} - ")
if(NOT release_heading MATCHES "^## .* - (....-..-..)$")
    message(FATAL_ERROR "CHANGELOG.md has no entry for ${PROJECT_VERSION}")
endif()
set(release_date ${CMAKE_MATCH_1})
include(cmake/Sbom.cmake)

set(library_package libvexmelkconfiguration${PROJECT_VERSION_MAJOR})
set(development_package libvexmelkconfiguration-dev)
if(MELK_DEBIAN)
    execute_process(COMMAND date --utc --rfc-email "--date=${release_date}"
        OUTPUT_VARIABLE release_date_rfc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    configure_file(packaging/debian/changelog.in changelog.Debian @ONLY)
    configure_file(CHANGELOG.md changelog COPYONLY)
    foreach(changelog changelog.Debian changelog)
        execute_process(COMMAND gzip --best --no-name --force ${changelog}
            WORKING_DIRECTORY ${PROJECT_BINARY_DIR} COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
    function(melk_install_documents component package)
        install(FILES packaging/debian/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz
                      ${PROJECT_BINARY_DIR}/changelog.gz ${melk_sbom}
            DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package} COMPONENT ${component})
    endfunction()
    melk_install_documents(Runtime ${library_package})
    melk_install_documents(Development ${development_package})
else()
    install(FILES LICENSE CHANGELOG.md SECURITY.md ${melk_sbom}
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/VEXMELKConfiguration COMPONENT Runtime)
endif()

set(CPACK_PACKAGE_NAME VEXMELKConfiguration)
set(CPACK_PACKAGE_VENDOR "VEXMELKConfiguration")
set(CPACK_PACKAGE_CONTACT ${MELK_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configuration of vehicle-architecture checks")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
# Whoever runs cpack may have another mask: the permissions in a package are the usual ones.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# The parser as SECURITY.md asks for it; what the symbols alone would ask for is older.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libexpat1 (>= 2.5.0-1+deb12u5)")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"Finds the XML files that hold the parameters of the checks, reads them, and
answers typed questions: the data of a standard for a vehicle category,
filled into a plain record.
.
This package holds the shared library.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${library_package} (= ${PROJECT_VERSION}-1), libexpat1 (>= 2.5.0-1+deb12u5)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"Finds the XML files that hold the parameters of the checks, reads them, and
answers typed questions: the data of a standard for a vehicle category,
filled into a plain record.
.
This package holds the headers, what programs need to be linked, a sample
configuration, and melkcfg, which asks the same questions from a shell.")
# The tool is linked to the library of the same build.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

if(WIN32)
    # The runtime of the compiler, beside the programs that need it.
    set(MELK_WINDOWS_RUNTIME "" CACHE STRING "DLLs to install with the library")
    set(MELK_WINDOWS_SUFFIX "" CACHE STRING "What the name of the archive ends in")
    install(FILES ${MELK_WINDOWS_RUNTIME} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_SYSTEM_NAME windows${MELK_WINDOWS_SUFFIX})
else()
    set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(CPACK_COMPONENTS_ALL Runtime Development)
include(CPack)
cpack_add_component(Runtime DISPLAY_NAME "Library")
cpack_add_component(Development DISPLAY_NAME "Development and tool" DEPENDS Runtime)
