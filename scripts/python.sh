#!/usr/bin/env bash
# Builds the Python module and its wheel (build/release/wheel), installs the wheel into an environment of its own,
# and there runs the tests, the documentation's examples and a type checker over the stubs. Installs what is missing.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
ensure_packages "${build_packages[@]}" python3-dev pybind11-dev python3-build python3-setuptools python3-wheel \
    python3-venv python3-pip python3-pytest python3-pandas mypy

build=build/release
# The distribution's Python, whose packages these are.
python=/usr/bin/python3
# What is built there for the tool is used; afterwards the folder is as it was.
cmake --preset release -DMELK_PYTHON=ON -DPython3_EXECUTABLE=$python >/dev/null
rm -rf $build/wheel $build/python/build
cmake --build $build --target wheel
cmake --preset release -DMELK_PYTHON=OFF >/dev/null

rm -rf $build/environment
$python -m venv --system-site-packages $build/environment
$build/environment/bin/pip install --quiet --no-index --no-deps $build/wheel/melkcfg-*.whl
export MELK_CFG_PATH=$PWD/configuration
# Not in this folder, so that what is imported is what was installed.
cd $build
environment/bin/python -m pytest -q -p no:cacheprovider ../../python/tests
$python -m mypy --python-executable environment/bin/python --no-incremental --strict \
    ../../docs/python_example.py
environment/bin/python ../../docs/python_example.py
