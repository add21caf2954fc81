# How this project's own code is compiled.
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release)
endif()
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

add_library(melk_compiler INTERFACE)
if(NOT MSVC)
    target_compile_options(melk_compiler INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${MELK_WERROR}>:-Werror>)
    # GCC 12 warns of overlaps inside the standard library's own operator+ for strings.
    target_compile_options(melk_compiler INTERFACE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
    # To Clang conversions are also those of signs, and in a unity build one file's names shadow those of another. What it
    # says of files by themselves, scripts/tidy.sh shows.
    target_compile_options(melk_compiler INTERFACE
        $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion;$<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-shadow>>)
    # Calls within the library are bound when it is built.
    target_compile_options(melk_compiler INTERFACE -fno-semantic-interposition)
    # The few words that are each thread's own are found without a call; they fit where any process keeps room for
    # those of libraries that it loads later.
    if(UNIX)
        target_compile_options(melk_compiler INTERFACE -ftls-model=initial-exec)
    endif()
    # What is built does not tell where: two builds in different folders are the same.
    target_compile_options(melk_compiler INTERFACE
        $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build;-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)
endif()
# The tool is built in short time rather than to be fast, and the tests in the shortest.
add_library(melk_quick_compiler INTERFACE)
add_library(melk_test_compiler INTERFACE)
target_link_libraries(melk_quick_compiler INTERFACE melk_compiler)
target_link_libraries(melk_test_compiler INTERFACE melk_compiler)
if(NOT MSVC)
    if(MELK_SANITIZE)
        target_compile_options(melk_quick_compiler INTERFACE -O0)
    else()
        target_compile_options(melk_quick_compiler INTERFACE -O1)
    endif()
    # The linker for Windows takes minutes over the many small functions that are left without optimisation.
    target_compile_options(melk_test_compiler INTERFACE $<IF:$<PLATFORM_ID:Windows>,-O1,-O0>)
    # In a unity build, GCC takes a test's fixture for one of a header, seen by many files.
    target_compile_options(melk_test_compiler INTERFACE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wno-subobject-linkage>)
endif()

if(MELK_SANITIZE)
    add_compile_options(-fsanitize=${MELK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MELK_SANITIZE})
endif()
