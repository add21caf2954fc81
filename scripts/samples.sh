#!/bin/bash
# Makes the pictures and the report in docs/samples from the sample configuration. With --check it writes nothing, and
# fails when they are not what melkcfg makes now.
#
#     scripts/samples.sh [--check] [MELKCFG]
set -euo pipefail
cd "$(dirname "$0")/.."
check=
[ "${1:-}" = --check ] && check=yes && shift
melkcfg=$(realpath "${1:-build/release/bin/melkcfg}")

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
draw() { "$melkcfg" --config configuration draw "$1" "$2" "$3" -o "$made/$4.svg"; }
draw UFCurb "In-house 2024" default curb
draw EyeEllipses "Eye Ellipses 1997" default eye-ellipses
draw CrashBarriers "In-house 2024" default crash-barriers

# A few files, so that the page stays small.
for file in OVA/UFCurb OVA/CrashBarriers Toolbox/Wipers; do
    for tree in Default Customer; do
        install -D -m 644 "configuration/$tree/$file.xml" "$made/configuration/$tree/$file.xml"
    done
done
install -D -m 644 configuration/Default/OVA/BaseData.xml "$made/configuration/Default/OVA/BaseData.xml"
install -D -m 644 configuration/basedata.dtd "$made/configuration/basedata.dtd"
SOURCE_DATE_EPOCH=1767225600 "$melkcfg" --config "$made/configuration" report -o "$made/report.html"
rm -r "$made/configuration"

if [ -n "$check" ]; then
    diff -rq "$made" docs/samples
else
    mkdir -p docs/samples
    cp "$made"/* docs/samples/
fi
