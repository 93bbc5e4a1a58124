#!/usr/bin/env bash
# Sets up, builds and runs every test, some also in another order each time; also checks the format, the layers, that
# the library builds alone, without Qt and without a database library, and works on Windows; and runs the linter.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh test
scripts/format.sh --check
scripts/check_layers.sh
scripts/build.sh library
scripts/build.sh debug
export QT_QPA_PLATFORM=offscreen
ctest --preset debug -j "$(nproc)"
for tests in library_test views_test; do build/debug/tests/$tests --gtest_brief=1 --gtest_shuffle; done
scripts/test_windows.sh
scripts/lint.sh
