#!/usr/bin/env bash
# scripts/second_opinion.sh [DIRECTORY...]: compares the XML documents of the distribution's packages (below /usr/share,
# when no directory is named) as the DOM handles show them with what libxml2 makes of them.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" libxml2-dev
[ $# -gt 0 ] || set -- /usr/share

cmake -S . -B build/second_opinion -G Ninja -DMELK_TOOL=OFF -DMELK_TESTS=OFF -DMELK_SECOND_OPINION=ON >/dev/null
cmake --build build/second_opinion -- --quiet
find "$@" -type f -size -4M \( -name '*.xml' -o -name '*.svg' -o -name '*.xsl' -o -name '*.xslt' -o -name '*.ui' \
    -o -name '*.rng' -o -name '*.xsd' -o -name '*.docbook' -o -name '*.conf' \) 2>/dev/null | sort |
    build/second_opinion/bin/second_opinion
