# Sourced by scripts that try packages. Expects "sample" and "trials".

say() { printf '\n-- %s\n' "$*"; }

# Runs a command and shows its output only when it fails.
quietly() {
    local output status=0
    output=$("$@" 2>&1) || status=$?
    [ $status -eq 0 ] || printf '%s\n%s\nfailed: %s\n' "$*" "$output" "$status" >&2
    return $status
}

# try_installed PREFIX NAME: the tool runs from there, and programs are built against it by CMake and by pkg-config, with
# the compiler's defaults.
try_installed() {
    local prefix=$1 build=$trials/consumer-$2 flags libraries
    libraries=$(dirname "$(find "$prefix" -name 'libVEXMELKConfiguration.*' | head -n 1)")
    if [ "$2" = debian ]; then # the system finds its libraries itself, once they are installed
        export LD_LIBRARY_PATH=$libraries
    fi
    [ ! -x "$prefix/bin/melkcfg" ] || [ "$("$prefix/bin/melkcfg" --config "$sample" call UFCurb GetStandardData "standard=EU Passenger Car" category=suv |
        sed -n 's/^definition.FrontOffset: //p')" = 180mm ]
    quietly cmake -S tests/consumer -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$build"
    quietly "$build/consumer" "$prefix/share/VEXMELKConfiguration/configuration"
    # The headers ask for no exceptions of whoever includes them.
    eval "flags=($(PKG_CONFIG_PATH=$libraries/pkgconfig pkg-config --cflags --libs VEXMELKConfiguration))"
    quietly g++ -fno-exceptions tests/consumer/consumer.cpp "${flags[@]}" -o "$build/by-pkg-config"
    LD_LIBRARY_PATH=$libraries quietly "$build/by-pkg-config" "$sample"
    unset LD_LIBRARY_PATH
    echo "the tool, and consumers by CMake and pkg-config, answer"
}
