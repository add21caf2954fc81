#!/usr/bin/env bash
# scripts/windows.sh [test]: builds the library and the tool for Windows with mingw-w64, and packs them into
# build/windows/VEXMELKConfiguration-VERSION-windows.zip, which needs nothing else installed. With "test", the unit
# tests, the sample's questions and the programs of outsiders run under Wine. Installs what is missing.
#
# The parser and utf8proc are built from the distribution's sources, static. Where the parser's mended source (SECURITY.md)
# is not to be had, an older one is taken and the zip is named after it: such a zip is for tests only.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" g++-mingw-w64-x86-64-posix dpkg-dev zip unzip googletest
parts=$PWD/build/windows-parts
sources=$parts/sources
runtime_directory=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
threads_library=$(x86_64-w64-mingw32-g++-posix -print-file-name=libwinpthread-1.dll)

# apt with a list of sources beside the one of binaries, and a state of its own.
apt_sources() {
    "$1" -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$sources/apt" \
        -o Dir::State::Lists="$sources/lists" -o APT::Sandbox::User=root "${@:2}"
}
list_sources() {
    mkdir -p "$sources/apt" "$sources/lists/partial"
    local file
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$file" ] || sed -n 's/^deb /deb-src /p' "$file" >"$sources/apt/$(basename "$file" .list).list"
    done
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$sources/apt/$(basename "$file")"
    done
    apt_sources apt-get update -qq
}

# The newest source of a package that can be had, unpacked into $sources/NAME; leaves its version in $sources/NAME.version.
unpack_source() {
    local name=$1 version
    for version in $(apt_sources apt-cache showsrc "$name" | awk '/^Version:/ { print $2 }' | sort -rV | uniq); do
        rm -rf "${sources:?}/$name" && mkdir "$sources/$name"
        (cd "$sources/$name" && apt_sources apt-get source -qq "$name=$version" >log 2>&1) || continue
        echo "$version" >"$sources/$name.version"
        return
    done
    echo "windows.sh: no source of $name can be had" >&2
    return 1
}

build_part() {
    local source=$1
    cmake -S "$source" -B "$parts/build/$2" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DCMAKE_INSTALL_PREFIX="$parts" \
        -DCMAKE_C_FLAGS="-DXML_GE=1 -ffile-prefix-map=$parts=parts" "${@:3}" >/dev/null
    cmake --build "$parts/build/$2" -- --quiet
    cmake --install "$parts/build/$2" >/dev/null
}

build_parts() {
    list_sources
    unpack_source expat
    unpack_source utf8proc
    # The distribution's changes compare these with 1, as its own way to build the parser defines them.
    sed -i 's/^#cmakedefine XML_DTD$/#cmakedefine XML_DTD 1/' "$sources"/expat/*/expat/expat_config.h.cmake
    build_part "$(echo "$sources"/expat/*/expat)" expat -DEXPAT_BUILD_TOOLS=OFF -DEXPAT_BUILD_EXAMPLES=OFF \
        -DEXPAT_BUILD_TESTS=OFF -DEXPAT_BUILD_DOCS=OFF -DEXPAT_SHARED_LIBS=OFF
    build_part "$(echo "$sources"/utf8proc/*/)" utf8proc -DUTF8PROC_ENABLE_TESTING=OFF
    build_part /usr/src/googletest googletest
    # Headers only: those of other systems' packages must stay out of sight.
    cp -r /usr/include/CLI /usr/include/nlohmann "$parts/include"
    mkdir -p "$parts/share/cmake"
    cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$parts/share/cmake"
    touch "$parts/done"
}

[ -f "$parts/done" ] || { rm -rf "$parts" && build_parts; }
parser_version=$(cat "$sources/expat.version")
suffix=
if ! dpkg --compare-versions "$parser_version" ge "$parser_at_least"; then
    suffix=-expat-$parser_version
    echo "windows.sh: the parser's source is $parser_version, older than $parser_at_least: the zip is for tests only" >&2
fi
runtime_version=$(x86_64-w64-mingw32-g++-posix -dumpfullversion)
cmake --preset windows-mingw -DMELK_WINDOWS_PARTS="$parts" -DMELK_WINDOWS_SUFFIX="$suffix" \
    -DMELK_PARSER_VERSION="$parser_version" \
    -DMELK_WINDOWS_RUNTIME="$runtime_directory/libstdc++-6.dll;$runtime_directory/libgcc_s_seh-1.dll;$threads_library" \
    -DMELK_SBOM_PARTS="libstdc++ and libgcc|$runtime_version|GPL-3.0-or-later WITH GCC-exception-3.1|DYNAMIC_LINK;winpthreads|$(dpkg-query -W -f '${Version}' mingw-w64-x86-64-dev)|MIT AND BSD-3-Clause|DYNAMIC_LINK" >/dev/null
cmake --build --preset windows-mingw
[ "${1:-}" != test ] || scripts/wine_tests.sh
