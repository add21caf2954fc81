#!/usr/bin/env bash
# scripts/schemas.sh [MELKCFG]: holds the schemas that melkcfg writes against validators of the distribution: xmllint
# and jing for both kinds, nxml-mode in Emacs as an engineer has it; and the reports of melkcfg check against the schemas
# of their formats. Needs the release build unless the tool is named.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages libxml2-utils jing emacs-nox python3 python3-jsonschema
python3 scripts/schemas.py "${1:-build/release/bin/melkcfg}"
