#!/usr/bin/env bash
# scripts/boxes.sh BUILD: a message box comes up on the desktop with the library of a build folder, and goes when it is
# closed; without a desktop it goes to standard error. Nothing is linked to the toolkit.
# scripts/boxes.sh --run PROGRAM...: the same for a program that is there already, such as one for Windows.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
trials=$PWD/build/trials
sample=$PWD/configuration
. scripts/trials.sh
ensure_packages xvfb xauth xdotool libgtk-3-0

# In a display of its own: waits for the box, closes it as a user does, and waits for the program.
if [ "${1:-}" = --inside ]; then
    shift
    "$@" >"$trials/box.out" 2>"$trials/box.err" &
    program=$!
    window=$(timeout 60 xdotool search --sync --name '^Error$' | head -n 1)
    sleep 1 # until it takes keys
    kill -0 "$program"
    for _ in 1 2 3 4 5 6 7 8 9 10; do
        xdotool windowfocus "$window" key --window "$window" Return || true
        sleep 1
        kill -0 "$program" 2>/dev/null || break
    done
    wait "$program"
    grep -q '^closed' "$trials/box.out"
    exit
fi

try_box() {
    timeout 120 xvfb-run -a scripts/boxes.sh --inside "$@"
    echo "a box came up and was closed: $(basename "${@: -1}")"
}
mkdir -p "$trials"
if [ "${1:-}" = --run ]; then
    try_box "${@:2}"
    exit
fi

build=${1:?usage: scripts/boxes.sh BUILD}
rm -rf "$trials/boxes"
quietly cmake --install "$build" --prefix "$trials/boxes/installed"
quietly cmake -S tests/consumer -B "$trials/boxes/build" -G Ninja -DCMAKE_PREFIX_PATH="$trials/boxes/installed"
quietly cmake --build "$trials/boxes/build" --target box
try_box "$trials/boxes/build/box"
env -u DISPLAY -u WAYLAND_DISPLAY "$trials/boxes/build/box" 2>&1 >/dev/null | grep -q '^error: Error: .*not found'
echo "without a desktop it goes to standard error"
! ldd "$trials/boxes/build/box" | grep -i gtk
