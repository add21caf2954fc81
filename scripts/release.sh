#!/usr/bin/env bash
# scripts/release.sh: builds the packages for Linux into build/packages and tries each as its users do: lintian reads the
# Debian packages, and a program of outsiders is built against every way to have the library. Installs what is missing.
# scripts/release.sh here: only what this folder's build is enough for; the rest takes six builds more.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" lintian dpkg-dev pkg-config file git python3
sample=$PWD/configuration
packages=$PWD/build/packages
trials=$PWD/build/trials
sources=$PWD
rm -rf "$packages" "$trials"
mkdir -p "$packages" "$trials"
# All files in packages bear the time of the last commit, so that the packages do not depend on when they were built.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
. scripts/trials.sh

# configure FOLDER OPTION...: a release build without tests.
configure() {
    quietly env -C "$sources" cmake --preset release -B "$1" -DMELK_TESTS=OFF "${@:2}"
}
# pack FOLDER: the pair of Debian packages and the archive of a folder's sources, into FOLDER/packages.
pack() {
    configure "$1" -DCMAKE_INSTALL_PREFIX=/usr \
        -DCMAKE_INSTALL_LIBDIR="lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)" -DCMAKE_SKIP_INSTALL_RPATH=ON -DMELK_DEBIAN=ON
    quietly cmake --build "$1"
    quietly cpack --config "$1/CPackConfig.cmake" -G DEB -B "$1/packages"
    configure "$1" -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_SKIP_INSTALL_RPATH=OFF -DMELK_DEBIAN=OFF
    quietly cmake --build "$1"
    quietly cpack --config "$1/CPackConfig.cmake" -G TGZ -B "$1/packages"
}

say "Debian packages and archive"
pack "$PWD/build/release" # what is built there already is used
find build/release/packages -maxdepth 1 -type f -exec mv {} "$packages" \;
quietly cmake --preset release -DMELK_TESTS=ON
ls -l "$packages"

say "lintian"
lintian --fail-on error --suppress-tags bogus-mail-host "$packages"/*.deb

say "the Debian packages, unpacked"
for package in "$packages"/*.deb; do
    dpkg-deb --extract "$package" "$trials/debian"
    dpkg-deb --field "$package" Package Depends
done
dpkg-deb --field "$packages"/libvexmelkconfiguration1_*.deb Depends | grep -q "libexpat1 (>= $parser_at_least)"
python3 scripts/check_sbom.py "$trials"/debian/usr/share/doc/*/*.spdx.json
try_installed "$trials/debian/usr" debian

say "the archive, in a folder that it was not made for"
mkdir -p "$trials/archive/first"
tar -xzf "$packages"/*.tar.gz -C "$trials/archive/first" --strip-components=1
mv "$trials/archive/first" "$trials/archive/a moved folder"
try_installed "$trials/archive/a moved folder" archive

[ "${1:-}" != here ] || exit 0

say "two builds in different folders"
rm -rf "$trials/elsewhere"
git clone --quiet --no-hardlinks . "$trials/elsewhere/sources of another"
if git diff --quiet HEAD && [ -z "$(git ls-files --others --exclude-standard)" ]; then
    sources=$trials/elsewhere/"sources of another"
    pack "$trials/elsewhere/build"
    sources=$PWD
    for package in "$packages"/*.deb "$packages"/*.tar.gz; do
        cmp "$package" "$trials/elsewhere/build/packages/$(basename "$package")"
    done
    echo "all packages are the same, byte for byte"
else
    echo "left out: there are changes that are not committed"
fi

say "a static library"
configure "$PWD/build/static" -DMELK_TOOL=OFF -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$trials/static"
quietly cmake --build build/static
quietly cmake --install build/static
try_installed "$trials/static" static

say "as a part of another project, by add_subdirectory and by FetchContent"
for way in subdirectory fetched; do
    # Without the tool's dependencies: they are not looked for.
    quietly cmake -S "tests/consumer/$way" -B "$trials/$way" -G Ninja -DVEXMELKConfiguration_SOURCES="$sources" \
        -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON
    quietly cmake --build "$trials/$way"
    quietly "$trials/$way/consumer" "$sample"
done

say "the recipes of package managers"
scripts/recipes.sh
