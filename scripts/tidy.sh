#!/usr/bin/env bash
# Runs clang-tidy over the library, the tool and the tests; silent when there is nothing to say. With file names: over
# those files only. The files of a folder are checked as one, because most of the time goes into the headers of others;
# the readers are checked one by one, because their tables have the same names.
set -euo pipefail
cd "$(dirname "$0")/.."
rm -rf build/tidy
mkdir -p build/tidy

includes=(-I. -Idocument -Idocument/parsing -Ihost -Ihost/desktop -Idescription -Icore -Ioccupant -Iinclude -Iinsight -Itests -Itools/melkcfg)
# Those of cmake/Compiler.cmake: what clang says more than GCC.
warnings=(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
defines=(-DMELKCFG=\"\" -DMELK_LIBRARY=\"\" -DMELKCFG_VERSION=\"\" -DMELKCFG_SAMPLE=\"\" -DMELKCFG_HAS_LIBEDIT -DSAMPLE_CONFIGURATION=\"\" -DCASES=\"\" -DMELK_SANITIZED=0)

# as_one NAME PATTERN...: a file that includes all files of the patterns.
as_one() {
    local file=build/tidy/$1.cpp
    git ls-files "${@:2}" | grep -v '^tests/consumer/' | sed 's/.*/#include "&"/' >"$file"
    files+=("$file")
}

files=("$@")
if [ $# -eq 0 ]; then
    as_one tests 'tests/*.cpp'
    as_one tools 'tools/melkcfg/*.cpp'
    as_one document 'document/*.cpp'
    as_one host 'host/*.cpp' 'description/*.cpp'
    as_one insight 'insight/VEXMELK[A-O]*.cpp'
    as_one more_insight 'insight/VEXMELK[P-Z]*.cpp'
    mapfile -t -O "${#files[@]}" files < <(git ls-files 'occupant/*.cpp' 'vision/*.cpp' 'safety/*.cpp' 'core/*.cpp')
fi
# check FLAG...: the files on standard input, with those flags of the compiler.
check() {
    xargs -r -P "$(nproc)" -I{} clang-tidy-14 --quiet {} -- -std=c++20 "${warnings[@]}" "${includes[@]}" "${defines[@]}" "$@" \
        2>>build/tidy/notes.txt
}
programs='^(build/tidy/)?(tests|tools)'
# As one, their files would shadow each other's names; clang's signs are not what they are compiled with.
printf '%s\n' "${files[@]}" | { grep -E "$programs" || true; } | check -Wno-shadow -Wno-sign-conversion
# In the library nothing may be destroyed when the process ends: the host still asks then.
printf '%s\n' "${files[@]}" | { grep -vE "$programs" || true; } | check -Wexit-time-destructors
