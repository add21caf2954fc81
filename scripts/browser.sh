#!/bin/bash
# Opens the report on the sample configuration in a headless browser and tries what a reader does there.
#
#     scripts/browser.sh [PRESET [DIRECTORY FOR SCREENSHOTS]]
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
ensure_packages "${build_packages[@]}" chromium chromium-driver python3 python3-selenium fonts-dejavu-core

preset=${1:-release}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target melkcfg
mkdir -p build/browser
SOURCE_DATE_EPOCH=0 "build/$preset/bin/melkcfg" --config configuration report -o build/browser/report.html
# The distribution's own Python has the package, whatever other there is.
exec /usr/bin/python3 scripts/browser_test.py build/browser/report.html "${@:2}"
