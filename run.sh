#!/usr/bin/env bash
# The main job: builds the library and runs a component application
# (examples/componentdemo.cpp) on the getting-started modules.
set -euo pipefail
cd "$(dirname "$0")"
scripts/deps.sh linux
cmake --preset release >/dev/null
cmake --build --preset release --target componentdemo qelhost
./build/release/bin/componentdemo
