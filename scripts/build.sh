#!/usr/bin/env bash
# build.sh PRESET [TARGET...]: configures and builds one of the presets in CMakePresets.json.
set -euo pipefail
cd "$(dirname "$0")/.."

preset=$1
shift
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" ${1:+--target "$@"}
