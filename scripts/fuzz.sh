#!/usr/bin/env bash
# scripts/fuzz.sh SECONDS [TARGET...]: runs each fuzzer (document, plain, quantity, configuration, session; two at a time) for
# that long and prints executions, coverage and finds. Finds stay in build/fuzz-run/TARGET. Each execution of "plain"
# tries 21 documents.
# scripts/fuzz.sh 0: only replays the committed corpora and the sample configuration.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" clang-14 libclang-rt-14-dev
seconds=${1:?usage: scripts/fuzz.sh SECONDS [TARGET...]}
targets=("${@:2}")
[ ${#targets[@]} -gt 0 ] || targets=(document plain quantity configuration session)
bin=$PWD/build/fuzz/bin
run=$PWD/build/fuzz-run

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -- --quiet

# One seed for each sample file, as fuzz/configuration.cpp reads it.
pack_samples() {
    local file
    (cd configuration/Default && find . -name '*.xml' -printf '%P\n') | while read -r file; do
        {
            printf '0%s\n' "$file"
            cat "configuration/Default/$file"
            printf '\n----\n'
            if [ -f "configuration/Customer/$file" ]; then cat "configuration/Customer/$file"; fi
            printf '\n----\n'
            if grep -q basedata.dtd "configuration/Default/$file"; then cat configuration/basedata.dtd; fi
        } >"$1/sample-${file//\//-}"
    done
    { printf '0DBAccess.xml\n' && cat configuration/DBAccess.xml; } >"$1/sample-DBAccess.xml"
}

prepare() {
    local seeds=$run/$1/seeds
    rm -rf "$seeds"
    mkdir -p "$seeds" "$run/$1/corpus" "$run/$1/finds"
    cp fuzz/corpus/"$1"/* "$seeds"
    case $1 in
    document | plain) find configuration -name '*.xml' -exec cp --backup=numbered {} "$seeds" \; ;;
    configuration) pack_samples "$seeds" ;;
    esac
}

# Leaves the fuzzer's own output in build/fuzz-run/TARGET/log; fails when it found something.
fuzz() {
    local options=(-rss_limit_mb=2048 -malloc_limit_mb=1024 -timeout=10 -print_final_stats=1
        -artifact_prefix="$run/$1/finds/")
    cd "$run/$1"
    if [ "$seconds" -eq 0 ]; then
        "$bin/fuzz_$1" "${options[@]}" -runs=0 seeds >log 2>&1
    else
        "$bin/fuzz_$1" "${options[@]}" -max_total_time="$seconds" -max_len=16384 -dict=../../../fuzz/xml.dict \
            corpus seeds >log 2>&1
    fi
}

report() {
    local executions coverage
    executions=$(awk '/number_of_executed_units/ { print $2 }' "$run/$1/log")
    coverage=$(grep -o 'cov: [0-9]* ft: [0-9]*' "$run/$1/log" | tail -n 1) || true
    printf '%-14s %9s executions, %s, finds: %s\n' "$1" "${executions:-?}" "$coverage" \
        "$(find "$run/$1/finds" -type f | wc -l)"
}

export MELK_DAMAGES=20
# Short stacks of allocations and a small quarantine double the speed.
export ASAN_OPTIONS=detect_leaks=1:malloc_context_size=4:quarantine_size_mb=32 UBSAN_OPTIONS=print_stacktrace=1
failed=0
for ((first = 0; first < ${#targets[@]}; first += 2)); do
    pair=("${targets[@]:first:2}")
    jobs=()
    for target in "${pair[@]}"; do
        prepare "$target"
        (fuzz "$target") &
        jobs+=($!)
    done
    for index in "${!pair[@]}"; do
        wait "${jobs[index]}" || { failed=1 && tail -n 40 "$run/${pair[index]}/log"; }
        report "${pair[index]}"
    done
done
exit "$failed"
