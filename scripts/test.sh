#!/usr/bin/env bash
# Sets up, builds and runs every test; also checks the format and that the library builds alone, without Qt
# and without a database library.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/format.sh --check
scripts/check_layers.sh
scripts/build.sh library
scripts/build.sh debug
QT_QPA_PLATFORM=offscreen ctest --preset debug -j "$(nproc)"
