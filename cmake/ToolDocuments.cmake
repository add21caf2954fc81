# The sample beside the built program, and what the program writes about itself: its manual page and its completion.
get_filename_component(sample ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${sample_from_program} ABSOLUTE)
get_filename_component(sample_folder ${sample} DIRECTORY)
file(MAKE_DIRECTORY ${sample_folder})
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/configuration ${sample} SYMBOLIC)

if(NOT CMAKE_CROSSCOMPILING)
    set(documents ${PROJECT_BINARY_DIR}/tool_documents)
    add_custom_command(OUTPUT ${documents}/melkcfg.1
        COMMAND ${CMAKE_COMMAND} -E make_directory ${documents}
        COMMAND melkcfg manual > ${documents}/melkcfg.1
        COMMAND melkcfg completion bash > ${documents}/melkcfg
        COMMAND melkcfg completion zsh > ${documents}/_melkcfg
        COMMAND melkcfg completion fish > ${documents}/melkcfg.fish
        BYPRODUCTS ${documents}/melkcfg ${documents}/_melkcfg ${documents}/melkcfg.fish
        DEPENDS melkcfg VERBATIM)
    set(manual ${documents}/melkcfg.1)
    if(MELK_DEBIAN)
        add_custom_command(OUTPUT ${manual}.gz
            COMMAND gzip --best --no-name --force --keep ${manual}
            DEPENDS ${manual} VERBATIM)
        string(APPEND manual .gz)
    endif()
    add_custom_target(tool_documents ALL DEPENDS ${manual})
endif()
