#!/usr/bin/env bash
# The main job: builds the library and runs the example program that shows it.
set -euo pipefail
cd "$(dirname "$0")"
scripts/deps.sh linux
cmake --preset release >/dev/null
cmake --build --preset release --target qelinfo
./build/release/bin/qelinfo
