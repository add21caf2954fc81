#!/usr/bin/env bash
# scripts/coverage.sh: prints which lines and branches of the library, insight and the tool the tests do not reach, and
# how many they do. Branches that only an exception takes, and those that the compiler made, are not counted.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" "${test_packages[@]}" gcovr
build=build/coverage

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O0 --coverage" >/dev/null
cmake --build "$build" -- --quiet
find "$build" -name '*.gcda' -delete
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" | tail -n 3

report() {
    gcovr --root . "$build" --exclude-throw-branches --exclude-unreachable-branches \
        --filter '(document|host|description|include|core|occupant|vision|safety|insight|tools/melkcfg)/' "$@"
}
report --txt | grep -vE ' (100|--)% *$'
report --branches --txt --print-summary | grep -vE ' (100|--)% *$'
