# Sourced by the other scripts: ensure_packages NAME... installs the distribution packages that are missing.
ensure_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    echo "installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(cmake ninja-build g++ libexpat1-dev libutf8proc-dev libcli11-dev nlohmann-json3-dev)
test_packages=(libgtest-dev libgmock-dev)
