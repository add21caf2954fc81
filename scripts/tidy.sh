#!/usr/bin/env bash
# Runs clang-tidy over the library, the tool and the tests; silent when there is nothing to say. A folder is checked as
# one file that includes its sources: the headers, which take most of the time, are then read once.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build/tidy

includes=(-Icore -Ioccupant -Iinclude -Itests -Itools/melkcfg)
for folder in platform/*/ siblings/*/; do includes+=("-I$folder"); done
defines=(-DMELKCFG=\"\" -DMELKCFG_VERSION=\"\" -DSAMPLE_CONFIGURATION=\"\" -DCASES=\"\")

check() {
    local name=$1
    shift
    printf '#include "%s"\n' "${@/#/$PWD/}" >"build/tidy/$name.cpp"
    printf '%s\n' "build/tidy/$name.cpp"
}

{
    for folder in platform siblings core occupant vision safety; do
        check "$folder" $(git ls-files "$folder/*.cpp")
    done
    check tool $(git ls-files 'tools/melkcfg/*.cpp')
    # Each for itself: their helpers have the same names.
    for file in $(git ls-files 'tests/*.cpp' | grep -v '^tests/consumer/'); do
        check "tests-$(basename "$file" .cpp)" "$file"
    done
} | xargs -P "$(nproc)" -n 1 -I{} clang-tidy-14 --quiet {} -- -std=c++20 "${includes[@]}" "${defines[@]}" \
    2>build/tidy/notes.txt
