# Writes the bill of materials of the packages, in SPDX 2.3: melk_sbom is its file. Names the versions that this build
# found. Whoever builds other parts in says so in MELK_SBOM_PARTS: NAME|VERSION|LICENSE|RELATION, parts by ";".
set(MELK_SBOM_PARTS "" CACHE STRING "Further parts for the bill of materials")
set(parser_version ${EXPAT_VERSION_STRING})
set(MELK_PARSER_VERSION "" CACHE STRING "The version of the parser's package, where that cannot be found out")
find_program(MELK_DPKG_QUERY dpkg-query)
mark_as_advanced(MELK_DPKG_QUERY)
if(MELK_PARSER_VERSION)
    set(parser_version ${MELK_PARSER_VERSION})
elseif(MELK_DPKG_QUERY AND NOT CMAKE_CROSSCOMPILING)
    # Distributions patch the parser without raising its version.
    execute_process(COMMAND ${MELK_DPKG_QUERY} -W -f "\${Version}" libexpat1
        OUTPUT_VARIABLE package_version RESULT_VARIABLE failed ERROR_QUIET)
    if(NOT failed)
        set(parser_version ${package_version})
    endif()
endif()
set(parser_relation DYNAMIC_LINK)
if(WIN32 OR NOT BUILD_SHARED_LIBS)
    set(parser_relation STATIC_LINK)
endif()
set(parts "Expat|${parser_version}|MIT|${parser_relation}" "utf8proc|${Utf8proc_VERSION}|MIT AND Unicode-DFS-2015|${parser_relation}")
if(MELK_TOOL)
    list(APPEND parts "CLI11|${CLI11_VERSION}|BSD-3-Clause|STATIC_LINK"
        "nlohmann-json|${nlohmann_json_VERSION}|MIT|STATIC_LINK")
endif()
list(APPEND parts ${MELK_SBOM_PARTS})

set(sbom_packages "")
set(sbom_relations "")
foreach(part ${parts})
    string(REPLACE "|" ";" fields "${part}")
    list(POP_FRONT fields name version license relation)
    string(REGEX REPLACE "[^A-Za-z0-9.-]" "-" id "SPDXRef-${name}")
    string(APPEND sbom_packages ",
    {
      \"SPDXID\": \"${id}\",
      \"name\": \"${name}\",
      \"versionInfo\": \"${version}\",
      \"downloadLocation\": \"NOASSERTION\",
      \"filesAnalyzed\": false,
      \"licenseConcluded\": \"${license}\",
      \"licenseDeclared\": \"${license}\",
      \"copyrightText\": \"NOASSERTION\"
    }")
    string(APPEND sbom_relations ",
    { \"spdxElementId\": \"SPDXRef-VEXMELKConfiguration\", \"relationshipType\": \"${relation}\", \"relatedSpdxElement\": \"${id}\" }")
endforeach()
# The same parts give the same name: two builds do not differ in it.
string(UUID sbom_id NAMESPACE 6ba7b811-9dad-11d1-80b4-00c04fd430c8
    NAME "VEXMELKConfiguration ${PROJECT_VERSION} ${CMAKE_SYSTEM_NAME} ${parts}" TYPE SHA1)
set(melk_sbom ${PROJECT_BINARY_DIR}/VEXMELKConfiguration.spdx.json)
configure_file(packaging/VEXMELKConfiguration.spdx.json.in ${melk_sbom} @ONLY)
