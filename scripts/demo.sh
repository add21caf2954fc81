#!/usr/bin/env bash
# Builds everything that is needed and asks the sample configuration real questions. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}"

echo "Building the library and melkcfg in build/demo; the first time takes a few minutes:"
cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_UNITY_BUILD=ON -DMELK_TESTS=OFF >/dev/null
cmake --build build/demo
melkcfg=build/demo/bin/melkcfg
export MELK_CFG_PATH=configuration

ask() {
    printf '\n$ melkcfg'
    printf ' %q' "$@"
    printf '\n'
    # An answer of "false" is an answer too.
    "$melkcfg" "$@" || [ $? -eq 1 ]
}

echo "The configurations that the sample directory holds, with their files and standards:"
ask list

echo
echo "The standards of the underfloor checks for a category, by priority level:"
for check in UFCurb UFDynamicCurb UFInnerAngle UFOilTub UFSlopeAngle UFSpaceToRoad UFWheelFixing UFComplete; do
    ask standards "$check" --category suv
done

echo
echo "Space to road: a standard that the Customer file redefines, one that only the Default file has, and a category"
echo "that falls back to \"default\":"
ask call UFSpaceToRoad GetStandardData "standard=In-house 2024" category=suv
ask call UFSpaceToRoad GetStandardData "standard=EU Passenger Car" category=suv
ask categories UFSpaceToRoad "EU Passenger Car"
ask call UFSpaceToRoad GetStandardData "standard=EU Passenger Car" "category=no such category"
