# Sourced by the other scripts: ensure_packages NAME... installs the distribution packages that are missing.

# The parser's package before it was mended counts as missing (SECURITY.md).
parser_at_least=2.5.0-1+deb12u5
is_installed() {
    local status version
    read -r status version < <(dpkg-query -W -f '${db:Status-Status} ${Version}\n' "$1" 2>/dev/null) || return 1
    [ "$status" = installed ] || return 1
    [[ $1 != libexpat1* ]] || dpkg --compare-versions "$version" ge "$parser_at_least"
}

ensure_packages() {
    local missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    # Scripts that run side by side install one after the other.
    mkdir -p build
    "${as_root[@]}" flock build/packages.lock apt-get update -qq
    "${as_root[@]}" flock build/packages.lock apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(cmake ninja-build g++ pkg-config libexpat1 libexpat1-dev libutf8proc-dev libcli11-dev nlohmann-json3-dev
    libedit-dev librsvg2-dev nettle-dev)
test_packages=(libgtest-dev libgmock-dev)
