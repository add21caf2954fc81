#!/usr/bin/env bash
# scripts/bench.sh [quick] [--write]: builds and runs the benchmarks and prints their tables. Installs what is missing.
# All figures go to build/bench/results.json. "quick" takes fewer repetitions and only the small document's instruction
# counts; --write also puts tables and plots into docs/performance.md and docs/performance/.
#
# Times are taken only on an idle machine: this waits for it, and leaves them out when it stays busy.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" libbenchmark-dev libpugixml-dev libxml2-dev libtinyxml2-dev libxerces-c-dev \
    libxml2-utils xmlstarlet hyperfine valgrind python3

quick='' write=''
for argument in "$@"; do
    case $argument in
    quick) quick=1 ;;
    --write) write=--write ;;
    *) echo "usage: scripts/bench.sh [quick] [--write]" >&2 && exit 2 ;;
    esac
done
build=${MELK_BENCH_BUILD:-build/bench}
results=$build/results
megabyte=1000000
export MELK_BENCH_DIR=$build/trees
readers=(library expat pugixml libxml2 tinyxml2 xerces)

cmake --preset bench -B "$build" >/dev/null
cmake --build "$build" -- --quiet
rm -rf "$results" "$MELK_BENCH_DIR"
mkdir -p "$results" "$MELK_BENCH_DIR"

# What counting gives does not depend on the machine's load.
count_instructions() {
    local size tree reader
    local sizes=(1000 "$megabyte")
    [ -n "$quick" ] || sizes+=($((19 * megabyte)))
    for size in "${sizes[@]}"; do
        tree=$("$build/bin/melk_tree" "$size")
        for reader in "${readers[@]}"; do
            valgrind --tool=callgrind --callgrind-out-file="$results/callgrind.$reader.$size" \
                "$build/bin/melk_load_once" "$reader" "$tree/Default/OVA/FreeSpace.xml" 2>"$results/valgrind.log"
            echo "$reader $size $(awk '/Collected/ { print $NF }' "$results/valgrind.log")"
        done
    done >"$results/instructions.txt"
    callgrind_annotate --inclusive=yes --threshold=100 "$results/callgrind.library.$megabyte" >"$results/shares.txt"
}

is_idle() { awk '{ exit !($1 < 1.6) }' /proc/loadavg; }
wait_until_idle() {
    local tries=0
    until is_idle; do
        [ $((++tries)) -le 36 ] || return 1
        sleep 20
    done
}

# From the start of the process to the answer, all on one file of the sample.
time_first_answers() {
    local file=configuration/Default/OVA/FreeSpace.xml
    local standard='EU Passenger Car' path
    path="//standard[@name='$standard']/category[@name='suv']/@FSBodyHight"
    export MELK_CFG_PATH=configuration
    local melkcfg="$build/bin/melkcfg call FreeSpace GetStandardData 'standard=$standard' category=suv"
    local xmllint="xmllint --xpath \"$path\" $file"
    local xmlstarlet="xmlstarlet sel -t -v \"$path\" $file"
    local command
    for command in "$melkcfg" "$xmllint" "$xmlstarlet"; do
        eval "$command" | grep -q 430mm || { echo "wrong answer: $command" >&2 && return 1; }
    done
    local runs=300
    [ -z "$quick" ] || runs=50
    hyperfine -N --warmup 20 --runs "$runs" --style none --export-json "$results/first.json" \
        -n melkcfg "$melkcfg" -n xmllint "$xmllint" -n xmlstarlet "$xmlstarlet" >/dev/null 2>&1
}

take_times() {
    local repetitions=15 seconds=0.02
    [ -z "$quick" ] || repetitions=3
    "$build/bin/melk_bench" --benchmark_filter='^(query|order|threads|configurations|load|growth)/' \
        --benchmark_enable_random_interleaving=true --benchmark_repetitions="$repetitions" \
        --benchmark_min_time="$seconds" --benchmark_format=json >"$results/times.json" 2>"$results/times.log"
    time_first_answers
}

count_instructions
"$build/bin/melk_bench" --benchmark_filter='^(memory/|query/.*/library)' --benchmark_min_time=0.01 \
    --benchmark_format=json >"$results/memory.json" 2>"$results/memory.log"
# A run counts when nothing else ran at its end either: its own load is 1.
for attempt in 1 2 3; do
    wait_until_idle || break
    take_times
    is_idle && break
    echo "Other work disturbed the times of attempt $attempt: thrown away." >&2
    rm -f "$results/times.json" "$results/first.json"
done
[ -f "$results/times.json" ] || echo "The machine stayed busy: no times were taken." >&2
python3 scripts/bench_report.py "$results" "$build/results.json" $write
