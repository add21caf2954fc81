#!/usr/bin/env bash
# Runs clang-tidy over the library, the tool and the tests; silent when there is nothing to say. With file names: over
# those files only. Each file is checked by itself: the tables of different readers have the same names.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build/tidy

includes=(-Idescription -Icore -Ioccupant -Iinclude -Itests -Itools/melkcfg)
for folder in platform/*/ siblings/*/; do includes+=("-I$folder"); done
defines=(-DMELKCFG=\"\" -DMELKCFG_VERSION=\"\" -DSAMPLE_CONFIGURATION=\"\" -DCASES=\"\")

if [ $# -gt 0 ]; then
    files=("$@")
else
    mapfile -t files < <(git ls-files 'description/*.cpp' 'platform/*.cpp' 'siblings/*.cpp' 'core/*.cpp' 'occupant/*.cpp' \
        'vision/*.cpp' 'safety/*.cpp' 'tools/melkcfg/*.cpp' 'tests/*.cpp' | grep -v '^tests/consumer/')
fi
printf '%s\n' "${files[@]}" |
    xargs -P "$(nproc)" -I{} clang-tidy-14 --quiet {} -- -std=c++20 "${includes[@]}" "${defines[@]}" \
        2>build/tidy/notes.txt
