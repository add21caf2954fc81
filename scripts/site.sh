#!/usr/bin/env bash
# Builds the site, docs/site/index.html: the pages and the reference of all headers. Fails on any warning, and on a link
# that leads nowhere. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages doxygen python3

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
rm -rf docs/site
mkdir -p docs/site
MELK_VERSION=$version doxygen docs/Doxyfile
# Doxygen links to a list of nested classes also where these are private, and the list is not there.
grep -rlF '<a href="#nested-classes">' docs/site --include='*.html' | while read -r page; do
    grep -qF 'name="nested-classes"' "$page" || sed -i 's|<a href="#nested-classes">Classes</a>||' "$page"
done
scripts/check_links.py docs/site
