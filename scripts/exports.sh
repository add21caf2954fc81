#!/usr/bin/env bash
# scripts/exports.sh LIBRARY [--write]: compares what the shared library exports with the golden list in
# cmake/exports.txt; --write puts the list there anew. What is new there can be linked to by others from then on; what
# goes from there breaks them, and asks for another major version.
set -euo pipefail
cd "$(dirname "$0")/.."
library=${1:?usage: scripts/exports.sh LIBRARY [--write]}
# By kind, name and symbol version.
list() {
    nm --dynamic --defined-only --demangle --with-symbol-versions "$library" | cut -d' ' -f2- | grep -v '^A ' |
        sed -E 's/\[abi:cxx11\]//g; s/std::__cxx11::/std::/g' | LC_ALL=C sort -u
}
if [ "${2:-}" = --write ]; then
    list >cmake/exports.txt
    exit
fi
diff --unified=0 --label "the golden list, cmake/exports.txt" cmake/exports.txt --label "what is exported" <(list) ||
    { echo "scripts/exports.sh $library --write takes this over" >&2 && exit 1; }
objdump --private-headers "$library" | grep -q "SONAME *libVEXMELKConfiguration.so.1$"
