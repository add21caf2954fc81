#!/usr/bin/env bash
# scripts/check.sh: builds the library, its tool and its tests and passes the checks that every change has to pass.
# Installs what is missing. Ends with CTest's summary of the release tests.
# scripts/check.sh quick: formatting, the debug build and its tests, for daily work.
# scripts/check.sh more: before a release: Windows under Wine, and what needs many builds: the packages in full, the
# fuzzers.
# scripts/check.sh STEP...: only these steps, by the names of their functions below.
#
# What a step says is kept in build/check/STEP.log and shown when it fails.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
logs=$PWD/build/check
mkdir -p "$logs"
jobs=$(nproc)

formatting() {
    git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run --Werror
}

# A preset's build, and its tests. Each test has a time limit of its own.
build() {
    cmake --preset "$1"
    cmake --build --preset "$1"
}
test_preset() {
    ctest --preset "$1" -j "$jobs" --no-tests=error
}

debug() { build dev && test_preset dev; }
release_build() { build release; }
release_tests() { test_preset release; }

# Clang builds everything that GCC builds, the benchmarks and the fuzzers' corpora too. The sanitizers' findings stay in
# files of their own, whatever the tests make of the processes that they end.
sanitizers() {
    rm -rf "$logs/sanitizers" && mkdir "$logs/sanitizers"
    export ASAN_OPTIONS=log_path=$logs/sanitizers/address UBSAN_OPTIONS=print_stacktrace=1:log_path=$logs/sanitizers/undefined
    build asan
    local status=0
    test_preset asan || status=$?
    find "$logs/sanitizers" -type f -size +0 -exec tail -n +1 {} +
    [ "$status" -eq 0 ] && [ -z "$(find "$logs/sanitizers" -type f -size +0)" ]
}

# Threads that load, ask, reload and release at will, under ThreadSanitizer.
threads() { build tsan && test_preset tsan; }
tidy() { scripts/tidy.sh; }
# Schemas, editors and reports under the validators of the distribution.
schemas() { scripts/schemas.sh; }
exports() { scripts/exports.sh build/release/lib/libVEXMELKConfiguration.so; }
# The report in a browser, as a reader uses it.
browser() { scripts/browser.sh release; }
python() { scripts/python.sh; }
site() { scripts/site.sh; }
packages() { scripts/release.sh here; }
release() { scripts/release.sh; }
# The fuzzers themselves, and every file compiled by itself.
fuzzers() { scripts/fuzz.sh 0; }
windows_build() { scripts/windows.sh; }
windows() { scripts/wine_tests.sh; }
boxes() { scripts/boxes.sh build/release; }

# A program built against the installed package, by CMake and by pkg-config.
installed() {
    rm -rf build/installed build/consumer
    cmake --install build/release --prefix build/installed
    cmake -S tests/consumer -B build/consumer -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_PREFIX_PATH="$PWD/build/installed"
    cmake --build build/consumer
    build/consumer/consumer build/installed/share/VEXMELKConfiguration/configuration
    local flags
    flags=$(PKG_CONFIG_PATH=build/installed/lib/pkgconfig:$(echo build/installed/lib/*/pkgconfig) \
        pkg-config --cflags --libs VEXMELKConfiguration)
    # The headers ask for no exceptions of whoever includes them.
    # shellcheck disable=SC2086
    g++ -std=c++20 -fno-exceptions tests/consumer/consumer.cpp $flags -o build/consumer/by-pkg-config
}

# A new check is a function above and its name here, in the order in which they run: what fails soonest first. Those
# joined by "+" keep one processor busy each and run side by side.
usual_steps=(formatting release_build exports installed boxes packages python schemas+site+browser sanitizers threads
    tidy release_tests)
more_steps=(windows_build windows release fuzzers)
quick_steps=(formatting debug)

# run STEP LABEL: prints the label and how long it took. The step runs in the background, because "set -e" does not hold in
# what is part of a condition.
run() {
    local begin=$SECONDS status=0
    (set -e; "$1") >"$logs/$1.log" 2>&1 </dev/null &
    wait $! || status=$?
    if [ $status -eq 0 ]; then
        printf '%s %4d s\n' "$2" $((SECONDS - begin))
        return
    fi
    printf '%s failed after %d s\n' "$2" $((SECONDS - begin))
    tail -n 200 "$logs/$1.log"
    echo "check.sh: failed at: $1 (all of it is in build/check/$1.log)" >&2
    exit 1
}

# As many at a time as there are processors. One that fails lets those that run come to their end, and no other begin.
run_side_by_side() {
    local step failed=
    for step in "$@"; do
        while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do
            wait -n || failed=yes
        done
        [ -z "$failed" ] || break
        run "$step" "$(printf '== %-14s' "$step")" &
    done
    while [ -n "$(jobs -p)" ]; do
        wait -n || failed=yes
    done
    [ -z "$failed" ] || exit 1
}

ensure_packages "${build_packages[@]}" "${test_packages[@]}" clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 git \
    pkg-config libbenchmark-dev libpugixml-dev libxml2-dev libtinyxml2-dev libxerces-c-dev

steps=("${usual_steps[@]}")
if [ "${1:-}" = quick ]; then
    steps=("${quick_steps[@]}")
elif [ "${1:-}" = more ]; then
    steps=("${more_steps[@]}")
elif [ $# -gt 0 ]; then
    steps=("$@")
fi
all=" ${usual_steps[*]} ${more_steps[*]} ${quick_steps[*]} "
all=${all//+/ }
for step in ${steps[*]//+/ }; do
    [[ $all = *" $step "* ]] || { echo "check.sh: there is no step $step; there are$all" >&2 && exit 2; }
done
for step in "${steps[@]}"; do
    IFS=+ read -ra side_by_side <<<"$step"
    if [ ${#side_by_side[@]} -eq 1 ]; then
        printf '== %-14s' "$step"
        run "$step" ""
    else
        run_side_by_side "${side_by_side[@]}"
    fi
done
tail -n 5 "$logs/${side_by_side[-1]}.log"
