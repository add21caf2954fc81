#!/usr/bin/env bash
# Builds everything and passes every check: release build and tests, the same under AddressSanitizer and
# UndefinedBehaviorSanitizer (the fuzzers' corpora among them), formatting, clang-tidy, and a program built against the
# installed package. Installs what is missing. Ends with CTest's summary of the release tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
current="installing packages"
trap 'echo "check.sh: failed at: $current" >&2' ERR
step() {
    current=$*
    printf '\n== %s\n' "$current"
}

ensure_packages "${build_packages[@]}" "${test_packages[@]}" \
    clang-14 clang-format-14 clang-tidy-14 git pkg-config

step "formatting"
git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run --Werror

step "release build, warnings as errors"
cmake --preset release >/dev/null
cmake --build --preset release

step "sanitized build and tests"
cmake --preset asan >/dev/null
cmake --build --preset asan
ctest --preset asan -j "$(nproc)" --progress

step "clang-tidy"
scripts/tidy.sh

step "the Python module"
scripts/python.sh

step "the site"
scripts/site.sh

step "a program built against the installed package"
rm -rf build/installed build/consumer
cmake --install build/release --prefix build/installed >/dev/null
cmake -S tests/consumer -B build/consumer -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$PWD/build/installed" >/dev/null
cmake --build build/consumer >/dev/null
build/consumer/consumer build/installed/share/VEXMELKConfiguration/configuration
flags=$(PKG_CONFIG_PATH=build/installed/lib/pkgconfig:$(echo build/installed/lib/*/pkgconfig) \
    pkg-config --cflags --libs VEXMELKConfiguration)
# The headers ask for no exceptions of whoever includes them.
# shellcheck disable=SC2086
g++ -std=c++20 -fno-exceptions tests/consumer/consumer.cpp $flags -o build/consumer/by-pkg-config

step "release tests"
ctest --preset release -j "$(nproc)"
