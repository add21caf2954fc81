#!/usr/bin/env bash
# scripts/recipes.sh: tries the vcpkg port and the Conan recipe as far as that goes without the package managers, which
# the distribution does not have. The port's script runs with stand-ins for vcpkg's functions, and its consumer is built
# against what it installs; the recipe is read, and builds with what it hands to CMake.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" python3
trials=$PWD/build/trials/recipes
rm -rf "$trials"
mkdir -p "$trials"
. scripts/trials.sh

quietly cmake -DSOURCES="$PWD" -DTRIALS="$trials/vcpkg" -P packaging/vcpkg/try.cmake
quietly cmake -S packaging/vcpkg/consumer -B "$trials/vcpkg-consumer" -G Ninja -DCMAKE_PREFIX_PATH="$trials/vcpkg/installed"
quietly cmake --build "$trials/vcpkg-consumer"
quietly "$trials/vcpkg-consumer/consumer" "$PWD/configuration"
echo "vcpkg: the port's script installs, and its consumer answers (vcpkg itself was not run)"

quietly python3 packaging/conan/try.py "$trials/conan"
quietly cmake -S packaging/conan/test_package -B "$trials/conan-consumer" -G Ninja -DCMAKE_PREFIX_PATH="$trials/conan/package"
quietly cmake --build "$trials/conan-consumer"
quietly "$trials/conan-consumer/consumer" "$PWD/configuration"
echo "Conan: the recipe's steps install, and its consumer answers (Conan itself was not run)"
